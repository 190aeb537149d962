#pragma once

#include "host/instruments/InstrumentSettings.h"
#include "host/instruments/SimulatedDriver.h"

#include <string>

namespace ko {

/// A set-up file: the simulated instruments and what stands around them.
struct Setup {
    std::string title = "Timebase Editor";
    std::optional<DateTime> clock; ///< the clock stands still at this time
    std::vector<InstrumentSettings> instruments;

    bool operator==(const Setup&) const = default;
};

/// Reads a set-up. Fails with an `InputError`: the file's name, the line, and either the fault in the syntax or the
/// path of the value and what is wrong with it.
Setup parseSetup(const std::string& text, const std::string& file);

/// The same from a file; one that cannot be read is an `InputError`, too.
Setup loadSetup(const std::string& file);

/// Fails with an `InputError` for a folder, and for a device or a socket, which may keep its reader waiting or never
/// end. A pipe is taken.
void refuseDevice(const std::string& file);

/// The whole content of a file that is no device. Fails with an `InputError`.
std::string readFile(const std::string& file);

/// A date with its time of day, "2026-11-21 09:30:00"; none when the text is no date.
std::optional<DateTime> readClockTime(const std::string& text);

SimulatedDrivers makeDrivers(const Setup& setup);

} // namespace ko
