#pragma once

#include "host/settings/HeadlessPage.h"
#include "host/sheet/SheetCommand.h"

namespace ko {

/// What the command line asks of the page's settings.
struct SettingsCommand {
    std::vector<std::string> set; ///< NAME=VALUE, in the order in which they are set
    std::vector<std::string> get;
    std::string save;    ///< file
    bool force = false;  ///< saves over a file that has changed since it was read
    std::string choices; ///< setting whose choices are asked for
    SheetCommand sheet;
    bool list = false;
    bool names = false;
    bool json = false;
    bool settable = false; ///< only what can be set now

    [[nodiscard]] bool isGiven() const
    {
        return list || !set.empty() || !get.empty() || !save.empty() || !sheet.file.empty() || !choices.empty();
    }
};

/// The set-up that the command line works on.
struct SettingsSource {
    std::string file;
    std::string content;               ///< of the file, as it was read
    ScenarioOptions options;           ///< of the page that is set
    std::optional<Locale> sheetLocale; ///< how a sheet writes numbers and dates; none: as in the page's language
};

/// Sets, reads, saves, writes the sheet, in this order, and prints what was asked for once all of it has succeeded.
/// Nothing is saved unless every setting was accepted, nor, without force, over a set-up that has changed meanwhile.
/// Fails with a `Refusal` or an `InputError`.
void runSettings(const SettingsCommand& command, const SettingsSource& source, HeadlessPage& played);

} // namespace ko
