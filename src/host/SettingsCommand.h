#pragma once

#include "host/PlayedPage.h"

namespace CLI { // NOLINT(readability-identifier-naming)
class App;
}

namespace ko {

/// What the command line asks of the page's settings.
struct SettingsCommand {
    std::vector<std::string> set; ///< NAME=VALUE, in the order in which they are set
    std::vector<std::string> get;
    std::string save;    ///< file
    std::string choices; ///< setting whose choices are asked for
    bool list = false;
    bool names = false;
    bool json = false;
    bool settable = false; ///< only what can be set now

    [[nodiscard]] bool isGiven() const
    {
        return list || !set.empty() || !get.empty() || !save.empty() || !choices.empty();
    }
};

/// Adds the options and the examples to the program's help. `--headless`, `--picture` and `--record` are there
/// already.
void declareSettings(CLI::App& app, SettingsCommand& command);

/// Sets, reads, saves, in this order, and prints what was asked for once all of it has succeeded. Nothing is saved
/// unless every setting was accepted. Fails with a `Refusal` or an `InputError`.
void runSettings(const SettingsCommand& command, const Setup& setup, PlayedPage& played);

} // namespace ko
