#include "host/main/SettingsCommand.h"

#include "host/settings/OffersList.h"
#include "host/settings/Settings.h"
#include "host/settings/SettingsList.h"
#include "host/setup/SetupSaving.h"
#include "host/sheet/SheetFile.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"
#include "host/support/StandardStreams.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

constexpr const char* examples =
    "Examples:\n"
    "  korvell-host bench.json                         open a window on the set-up\n"
    "  korvell-host bench.json --list                  what can be set, and to what\n"
    "  korvell-host bench.json --get sample-rate       print a value\n"
    "  korvell-host bench.json --choices sample-rate   print what it can be, a line each\n"
    "  korvell-host bench.json --set sample-rate=5000 --set duration='5 min' --save bench.json\n"
    "  korvell-host bench.json --set start=time --set start-time=2026-11-21T09:30:00 --save timed.json\n"
    "  korvell-host bench.json --sheet bench.pdf --language de --locale system\n"
    "  korvell-host --headless bench.json walk.scenario\n"
    "\n"
    "Nothing is saved unless every setting was accepted. A value that the instruments keep otherwise is noted.\n"
    "\n"
    "Exit status:\n"
    "  0  everything was done\n"
    "  1  the page refused a value or does not offer the setting now, or an expectation of the script failed\n"
    "  2  the command line, a file, a script or the output cannot be understood, read or written, or there is no\n"
    "     display for the window";

void tell(const std::vector<std::string>& notes)
{
    for (const std::string& note : notes)
        complain("note: " + note);
}

void setOne(PlayedPage& played, const std::string& text)
{
    const Assignment wanted = assignmentIn(played, text);
    tell(set(wanted.setting, played, wanted.value));
}

std::string listed(const SettingsCommand& command, const PlayedPage& played)
{
    const Settings settings = command.settable ? settableOnes(played) : settingsOf(played);
    if (command.json)
        return settingsJson(settings, played).dump(2) + '\n';
    return command.names ? settingNames(settings) : settingsTable(settings, played) + offersText(played);
}

std::string output(const SettingsCommand& command, const PlayedPage& played)
{
    std::string text;
    for (const std::string& name : command.get)
        text += settingText(valueOf(settingNamed(played, name), played)) + '\n';
    if (command.list)
        text += listed(command, played);
    if (!command.choices.empty())
        text += settingChoices(played, command.choices);
    return text;
}

void save(const SettingsCommand& command, const SettingsSource& source, const PlayedPage& played)
{
    if (!command.force && isSameFile(command.save, source.file) && hasChangedSince(source.file, source.content))
        throw InputError(command.save + ": has changed or is gone since it was read; --force saves all the same");
    saveSetup(command.save, withPresentValues(source.options.setup, played.drivers()));
}

void writeSheetOf(const SettingsCommand& command, const SettingsSource& source, const PlayedPage& played)
{
    ScenarioOptions options = source.options;
    options.setup = withPresentValues(options.setup, played.drivers());
    options.locale = source.sheetLocale;
    const bool isSaved = !command.save.empty();
    writeSheet(command.sheet, options, isSaved ? command.save : source.file, !isSaved && !command.set.empty());
}

constexpr const char* group = "Settings of the page, without a window";

/// `text` stands behind the option in the help.
void present(CLI::Option* option, const char* text)
{
    option->group(group)->option_text(text)->excludes("--headless")->excludes("--picture")->excludes("--capture");
}

} // namespace

void declareSettings(CLI::App& app, SettingsCommand& command)
{
    present(app.add_option("--set", command.set, "Set a setting as the page's user does; several in this order")
                ->allow_extra_args(false),
            "NAME=VALUE");
    present(app.add_option("--get", command.get, "Print the value of a setting; of several a line each")
                ->allow_extra_args(false),
            "NAME");
    auto* const save = app.add_option("--save", command.save, "Write the set-up with the values as they are then");
    present(save, "FILE");
    present(app.add_flag("--force", command.force, "Save even if the file has changed since it was read")->needs(save),
            " ");
    auto* const sheet =
        app.add_option("--sheet", command.sheet.file, "Write a sheet of the whole set-up, for paper, as .pdf or .html");
    present(sheet, "FILE");
    present(app.add_option("--paper", command.sheet.paper, "Of a sheet as .pdf; else that of the user's region")
                ->check(CLI::IsMember({"A4", "Letter"}))
                ->needs(sheet),
            "A4|Letter");
    auto* const list = app.add_flag("--list", command.list, "Print the settings and what they can be set to");
    present(list, " ");
    auto* const json = app.add_flag("--json", command.json, "The list as JSON")->needs(list);
    present(json, " ");
    present(app.add_flag("--names", command.names, "The list's names alone")->needs(list)->excludes(json), " ");
    present(app.add_flag("--settable", command.settable, "Of the list only what can be set now")->needs(list), " ");
    present(app.add_option("--choices", command.choices, "Print the choices of a setting, a line each"), "NAME");
    app.footer(examples);
}

void runSettings(const SettingsCommand& command, const SettingsSource& source, PlayedPage& played)
{
    if (!command.sheet.file.empty())
        checkSheetFile(command.sheet.file);
    tell(played.toldAtStart());
    for (const std::string& assignment : command.set)
        setOne(played, assignment);
    const std::string text = output(command, played);
    if (!command.save.empty())
        save(command, source, played);
    if (!command.sheet.file.empty())
        writeSheetOf(command, source, played);
    std::cout << text;
}

} // namespace ko
