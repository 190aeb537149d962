#include "host/main/SettingsCommand.h"

#include "host/settings/OffersList.h"
#include "host/settings/Settings.h"
#include "host/settings/SettingsList.h"
#include "host/setup/SetupSaving.h"
#include "host/sheet/SheetFile.h"
#include "host/support/FileWriter.h"
#include "host/support/HostTexts.h"
#include "host/support/InputError.h"
#include "host/support/StandardStreams.h"
#include "widgets/services/QtLocale.h"
#include "widgets/support/Convert.h"

#include <iostream>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

void printNotes(const std::vector<std::string>& notes)
{
    for (const std::string& note : notes)
        complain("note: " + note);
}

void setOne(HeadlessPage& played, const std::string& text)
{
    const Assignment wanted = assignmentIn(played, text);
    printNotes(set(wanted.setting, played, wanted.value));
}

std::string listed(const SettingsCommand& command, const HeadlessPage& played)
{
    const Settings settings = command.settable ? settableOnes(played) : settingsOf(played);
    if (command.json)
        return settingsJson(settings, played).dump(2) + '\n';
    return command.names ? settingNames(settings) : settingsTable(settings, played) + offersText(played);
}

std::string choices(const HeadlessPage& played, const std::string& name)
{
    const Choices found = settingChoices(played, name);
    if (!found.note.empty())
        printNotes({found.note});
    return found.lines;
}

std::string output(const SettingsCommand& command, const HeadlessPage& played)
{
    std::string text;
    for (const std::string& name : command.get)
        text += oneLine(settingText(valueOf(settingNamed(played, name), played))) + '\n';
    if (command.list)
        text += listed(command, played);
    if (!command.choices.empty())
        text += choices(played, command.choices);
    return text;
}

void save(const SettingsCommand& command, const SettingsSource& source, const HeadlessPage& played)
{
    if (!command.force && !isRecordingFile(source.file) && isSameFile(command.save, source.file) &&
        hasChangedSince(source.file, source.content))
        throw InputError(command.save + ": has changed or is gone since it was read; --force saves all the same");
    saveSetup(command.save, withPresentValues(source.options.setup, played.drivers()), source.content);
}

/// English means English (United States), the default without a window.
Locale localeOf(const std::string& language)
{
    return language == "en" ? Locale{} : toLocale(QLocale(toQt(language)));
}

void writeSheetOf(const SettingsCommand& command, const SettingsSource& source, const HeadlessPage& played)
{
    ScenarioOptions options = source.options;
    options.setup = withPresentValues(options.setup, played.drivers());
    // A device is open only once; the sheet shows what it holds.
    for (InstrumentSettings& instrument : options.setup.instruments)
        instrument.module.clear();
    options.locale = source.sheetLocale ? *source.sheetLocale : localeOf(played.text(hostText::languageCode));
    const bool isSaved = !command.save.empty();
    const bool isChanged = !command.set.empty() || !command.changes.empty();
    writeSheet(command.sheet, options, isSaved ? command.save : source.file, !isSaved && isChanged);
}

} // namespace

void runSettings(const SettingsCommand& command, const SettingsSource& source, HeadlessPage& played)
{
    if (!command.sheet.file.empty())
        checkSheetFile(command.sheet.file);
    printNotes(played.messagesAtStart());
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
