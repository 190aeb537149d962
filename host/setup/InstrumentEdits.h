#pragma once

#include "host/setup/HistoryState.h"
#include "host/setup/SetupFile.h"

#include <functional>

namespace ko {

/// Changes the description of instruments; gets the set-up with their present values.
using InstrumentChange = std::function<void(Setup& setup)>;

/// Returns what the instruments are after a change, for `History::edit`. An instrument that is described anew remains
/// the same object, with its history and its simulated faults, unless it gets or loses a timebase, trigger lines or
/// trigger parameters; it is recognised by its place or its name. Calls no driver. Throws an `InputError`, of the
/// change or for a description that a set-up file could not hold. `devices` opens those of new instruments.
HeldState changedInstruments(const HostInstruments& drivers, const InstrumentChange& change,
                             const std::shared_ptr<DeviceSource>& devices = {});

/// A channel's place in an instrument; -1: none, or all.
struct ChannelPlace {
    std::int32_t group = -1;
    std::int32_t channel = -1;

    bool operator==(const ChannelPlace&) const = default;
};

/// Returns where the trigger channel at `place` of an instrument is after a change of its description: a channel that
/// has become the trigger source, or the one with the same address; none if it has been removed.
ChannelPlace movedTrigger(const ChannelPlace& place, const InstrumentSettings& before, const InstrumentSettings& after);

} // namespace ko
