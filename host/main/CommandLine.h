#pragma once

#include "host/main/SettingsCommand.h"

#include <optional>
#include <string>

namespace ko {

/// What the user asks for on the command line.
struct CommandLine {
    bool headless = false;
    std::string locale;       ///< "system" or empty
    std::string language;     ///< string file or language code; empty: none named
    std::string picture;      ///< file to paint the page into; empty: none
    std::string capture;      ///< file to capture a scenario into; empty: none
    std::string setup;        ///< set-up file; empty: none
    std::string script = "-"; ///< script file; "-": standard input
    SettingsCommand settings;
};

/// Reads the command line. Prints what `--help` and `--version` ask for and returns none then. Fails with an
/// `InputError` for a command line that cannot be understood, and where a file would be written that is also named as
/// something else.
std::optional<CommandLine> commandLine(int argc, const char* const* argv);

} // namespace ko
