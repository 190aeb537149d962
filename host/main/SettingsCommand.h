#pragma once

#include "host/settings/HeadlessPage.h"
#include "host/setup/SetupChanges.h"
#include "host/sheet/SheetCommand.h"

namespace ko {

/// The command line's options for the page's settings.
struct SettingsCommand {
    std::vector<SetupChange> changes; ///< of the instruments, made first
    std::vector<std::string> set;     ///< NAME=VALUE, in the order in which they are set
    std::vector<std::string> get;
    std::string save;    ///< file to write; empty: none
    bool force = false;  ///< overwrites a file that has changed since it was read
    std::string choices; ///< setting whose choices are printed; empty: none
    SheetCommand sheet;
    bool list = false;
    bool names = false;
    bool json = false;
    bool settable = false; ///< list only what can be set at present

    [[nodiscard]] bool isGiven() const
    {
        return list || !changes.empty() || !set.empty() || !get.empty() || !save.empty() || !sheet.file.empty() ||
               !choices.empty();
    }
};

/// The set-up that the command line works on.
struct SettingsSource {
    std::string file;
    std::string content;               ///< content of the file when it was read
    ScenarioOptions options;           ///< of the page whose settings are used
    std::optional<Locale> sheetLocale; ///< for a sheet's numbers and dates; none: from the page's language
};

/// Sets, reads, saves and writes the sheet, in this order, and prints the output after all of it has succeeded. Saves
/// nothing unless every setting was accepted, and does not overwrite a file changed meanwhile unless forced. Fails with
/// a `Refusal` or an `InputError`.
void runSettings(const SettingsCommand& command, const SettingsSource& source, HeadlessPage& played);

} // namespace ko
