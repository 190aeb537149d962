#pragma once

#include "host/main/ModuleCommand.h"
#include "host/main/RecordCommand.h"
#include "host/main/SettingsCommand.h"

#include <functional>
#include <optional>
#include <string>

namespace ko {

/// The parsed command line.
struct CommandLine {
    bool headless = false;
    std::string locale;       ///< "system" or empty
    std::string language;     ///< string file or language code; empty: not given
    std::string picture;      ///< file to paint the page into; empty: none
    std::string capture;      ///< file to capture a scenario into; empty: none
    std::string setup;        ///< set-up file; empty: none
    std::string script = "-"; ///< script file; "-": standard input
    std::string startFrom;    ///< template of a new set-up; empty: none
    SettingsCommand settings;
    RecordCommand recording;
    ModuleCommand modules;
};

/// Parses the command line. Returns none after printing the output of `--help` or `--version`. Fails with an
/// `InputError` if the command line is invalid, if a file to write is also named for another purpose, or if
/// `refuseOwn`, which is called for each file to write, throws one.
std::optional<CommandLine> commandLine(int argc, const char* const* argv,
                                       const std::function<void(const std::string& file)>& refuseOwn);

} // namespace ko
