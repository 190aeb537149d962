#pragma once

#include "host/setup/SetupFile.h"

#include <compare>
#include <string>
#include <vector>

namespace ko {

/// An instrument, a group or a channel of a set-up, by indices; -1: not part of the place.
struct SetupPlace {
    std::size_t instrument = 0;
    int group = -1;
    int channel = -1;

    [[nodiscard]] bool isInstrument() const { return group < 0; }
    [[nodiscard]] bool isChannel() const { return channel >= 0; }
    auto operator<=>(const SetupPlace&) const = default; // NOLINT(modernize-use-nullptr): not in this text
};

/// Increasing, each once, none within another.
using SetupPlaces = std::vector<SetupPlace>;

// Changes of a set-up at places that exist. They throw an `InputError` and then change nothing.

/// A name of an instrument must be new; only a channel may be without a name.
void renameAt(Setup& setup, const SetupPlace& place, const std::string& name);
void removeAt(Setup& setup, const SetupPlaces& places);
/// Inserts copies, each after its original; returns their places. A copy has a free name and free addresses, is no
/// trigger source and has no simulated failures.
SetupPlaces duplicateAt(Setup& setup, const SetupPlaces& places);
/// Moves each one place up or down among its neighbours, all or none that reach the end; returns the places then.
SetupPlaces moveAt(Setup& setup, const SetupPlaces& places, bool down);
/// Adds an empty group with this name, followed by a number if it exists.
SetupPlace addGroup(Setup& setup, std::size_t instrument, const std::string& name);
/// Adds a channel at the end of a group, like the last one of the group or of the instrument, with a free name and the
/// next address.
SetupPlace addChannel(Setup& setup, const SetupPlace& group);
/// Switches the channels at these places and below them.
void enableAt(Setup& setup, const SetupPlaces& places, bool on);
/// Makes a channel the only trigger source of its instrument. Refuses one that cannot trigger.
void chooseTrigger(Setup& setup, const SetupPlace& channel);

} // namespace ko
