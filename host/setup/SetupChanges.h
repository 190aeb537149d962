#pragma once

#include "host/setup/SetupFile.h"

#include <set>
#include <string>
#include <vector>

namespace ko {

/// A change of the instruments of a set-up.
struct SetupChange {
    enum class Kind { Add, Remove, Rename, Enable, Disable };

    Kind kind = Kind::Add;
    std::string argument; ///< a kind of instrument or a device, an instrument's name, "OLD=NEW", or a channel
    std::string name;     ///< of an instrument to add; empty: the kind's
};

/// Adds a new instrument of the kind of this word, or "MODULE/DEVICE" as `--modules` lists it, with channel addresses
/// of a slot that no other instrument has. A name that is not given gets a number if it exists. Returns the
/// instrument's index.
std::size_t addInstrument(Setup& setup, const std::string& kind, const std::string& name = {});
/// Adds this instrument in the same way; its name gets a number if it exists.
std::size_t addInstrument(Setup& setup, InstrumentSettings instrument);
void removeInstrument(Setup& setup, const std::string& name);
/// Replaces the description of an instrument. Its name may be another one that no instrument has.
void describeInstrument(Setup& setup, std::size_t index, const InstrumentSettings& settings);
void renameInstrument(Setup& setup, const std::string& name, const std::string& newName);
/// Switches a channel, which is named by its name, its address, or "INSTRUMENT/" and one of both.
void enableChannel(Setup& setup, const std::string& channel, bool on);

// For changes of instruments by their places.

/// Throws an `InputError` if an instrument cannot get this name.
void checkNewName(const Setup& setup, const std::string& name);
/// Returns the number after the last, or if there is none the first that is free; from 1.
int freeNumber(const std::set<int>& taken);
/// Returns a slot that no channel has, after all others if there is one.
int freeSlot(const Setup& setup);
/// Gives the channels of a simulated instrument addresses of a free slot.
void moveToFreeSlot(const Setup& setup, InstrumentSettings& instrument);

/// Applies a change as it is written on the command line. As the functions above, fails with an `InputError` that names
/// what does not exist and suggests what does, and changes nothing then.
void applyChange(Setup& setup, const SetupChange& change);

} // namespace ko
