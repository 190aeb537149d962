#pragma once

#include "host/instruments/HostInstrument.h"
#include "host/instruments/InstrumentSettings.h"

#include <fstream>
#include <string>

namespace ko {

/// The content of a set-up file: its title, its clock and the simulated instruments.
struct Setup {
    std::string title = "Timebase Editor";
    std::optional<DateTime> clock; ///< if set, the clock always returns this time
    std::vector<InstrumentSettings> instruments;

    bool operator==(const Setup&) const = default;
};

/// Parses a set-up. Throws an `InputError` with the file's name, the line, and either the syntax error or the path of
/// the value and what is wrong with it.
Setup parseSetup(const std::string& text, const std::string& file);

/// As `parseSetup`, from a file. Throws an `InputError` if the file cannot be read.
Setup loadSetup(const std::string& file);

/// Opens a file that is no device, to read its bytes. Throws an `InputError`.
std::ifstream openFile(const std::string& file);

enum class Pipes { Taken, Refused };

/// Throws an `InputError` for a folder, for a device or a socket, which may block its reader or never end, and for a
/// pipe where it is `Refused`, as it is where a file is read at any place.
void refuseDevice(const std::string& file, Pipes pipes = Pipes::Taken);

/// Returns the whole content of a file that is no device. Throws an `InputError`.
std::string readFile(const std::string& file);

/// Parses a date with its time of day, "2026-11-21 09:30:00"; returns none if the text is no such date.
std::optional<DateTime> readClockTime(const std::string& text);
/// Formats a date as `readClockTime` reads it.
std::string clockText(DateTime time);

/// Makes an instrument by its description: a simulated one, or a device, which is not opened yet.
std::shared_ptr<HostInstrument> makeInstrument(const InstrumentSettings& settings,
                                               const std::shared_ptr<DeviceSource>& devices = {});

/// Makes the instruments of a set-up and opens their devices. A device that cannot be opened makes its instrument fail.
HostInstruments makeDrivers(const Setup& setup, const std::shared_ptr<DeviceSource>& devices = {});

/// Closes the devices of instruments that a list no longer has, and then opens those that it has instead.
void exchange(HostInstruments& list, HostInstruments instead);

} // namespace ko
