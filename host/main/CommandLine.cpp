#include "host/main/CommandLine.h"

#include "host/settings/SettingTexts.h"
#include "host/setup/SetupTemplates.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>

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
    "  korvell-host bench.json --sheet bench.pdf --language de\n"
    "  korvell-host --new vibration --add counter --name Shaft --save mine.json\n"
    "  korvell-host bench.json --set duration=1 --record run.h5\n"
    "  korvell-host --headless bench.json walk.scenario\n"
    "  korvell-host --modules                          the driver modules, and the devices that they find\n"
    "\n"
    "Nothing is saved unless every setting was accepted. If an instrument changes a value, or holds\n"
    "another than the page, a note is printed.\n"
    "The command line is English; --language changes the texts of the page, its messages and the sheet.\n"
    "\n"
    "Exit status:\n"
    "  0  everything was done\n"
    "  1  the page refused a value or does not offer the setting now, an expectation of the script failed, or a\n"
    "     recording was refused or does not hold what the set-up promises, or a driver module breaks its contract\n"
    "  2  the command line, a file, a script or the output cannot be understood, read or written, or there is no\n"
    "     display for the window";

constexpr const char* group = "Settings of the page, without a window";

/// Refuses the option together with those of the window.
CLI::Option* withoutWindow(CLI::Option* option)
{
    return option->excludes("--picture")->excludes("--capture");
}

/// `text` is printed after the option's name in the help.
void present(CLI::Option* option, const char* text)
{
    withoutWindow(option)->group(group)->option_text(text)->excludes("--headless");
}

/// A validator for options that accepts only these words.
auto oneOf(std::vector<std::string> words)
{
    return [words = std::move(words)](const std::string& word) {
        const bool isOne = std::find(words.begin(), words.end(), word) != words.end();
        return isOne ? std::string() : "use " + joined(words, " or ");
    };
}

/// Declares the options for settings. `--headless`, `--picture` and `--capture` must be declared before.
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
    present(app.add_flag("--force", command.force, "With --save: even if the file has changed since it was read")
                ->needs(save),
            " ");
    auto* const sheet =
        app.add_option("--sheet", command.sheet.file, "Write a sheet of the whole set-up, for paper, as .pdf or .html");
    present(sheet, "FILE");
    present(app.add_option("--paper", command.sheet.paper, "Paper size of a PDF sheet (default: your region's)")
                ->check(oneOf({"A4", "Letter"}))
                ->needs(sheet),
            "A4|Letter");
    auto* const list = app.add_flag("--list", command.list, "Print the settings and what they can be set to");
    present(list, " ");
    auto* const json = app.add_flag("--json", command.json, "With --list: as JSON")->needs(list);
    present(json, " ");
    present(app.add_flag("--names", command.names, "With --list: names only")->needs(list)->excludes(json), " ");
    present(app.add_flag("--settable", command.settable, "With --list: only what can be set now")->needs(list), " ");
    present(app.add_option("--choices", command.choices, "Print the choices of a setting, a line each"), "NAME");
    app.footer(examples);
}

constexpr const char* changesGroup = "Instruments of the set-up, changed before its settings; several in this order";

/// The options that change the instruments, by their kind of change.
struct ChangeOption {
    const char* option;
    SetupChange::Kind kind;
    const char* value;
    const char* text;
};

constexpr ChangeOption changeOptions[]{
    {"--add", SetupChange::Kind::Add, "KIND",
     "Add an instrument: digitizer, signal-analyzer, ..., or a device, MODULE/DEVICE"},
    {"--remove", SetupChange::Kind::Remove, "NAME", "Remove an instrument"},
    {"--rename", SetupChange::Kind::Rename, "OLD=NEW", "Rename an instrument"},
    {"--enable", SetupChange::Kind::Enable, "CHANNEL", "Enable a channel: NAME, ADDRESS or INSTRUMENT/NAME"},
    {"--disable", SetupChange::Kind::Disable, "CHANNEL", "Disable a channel"},
};
constexpr const char* nameOption = "--name";

void declareChanges(CLI::App& app, CommandLine& line)
{
    present(app.add_option("--new", line.startFrom,
                           "Begin with a template instead of a set-up file: " + joined(templateNames(), ", ")),
            "TEMPLATE");
    const auto declared = [&](const char* name, const char* value, const char* text) {
        // The values are read in their order after parsing.
        auto* const option = app.add_option(name)->description(text)->expected(1);
        option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)->allow_extra_args(false);
        present(option, value);
        return option->group(changesGroup);
    };
    for (const ChangeOption& change : changeOptions)
        declared(change.option, change.value, change.text);
    declared(nameOption, "NAME", "With --add, after it: the new instrument's name")->needs("--add");
}

/// Returns the changes in the order of the command line.
std::vector<SetupChange> changesIn(const CLI::App& app)
{
    std::vector<SetupChange> changes;
    std::map<const CLI::Option*, std::size_t> used;
    for (const CLI::Option* const option : app.parse_order()) {
        const auto isIt = [&](const ChangeOption& change) { return option->check_name(change.option); };
        const auto* const change = std::find_if(std::begin(changeOptions), std::end(changeOptions), isIt);
        const bool isName = option->check_name(nameOption);
        if (change == std::end(changeOptions) && !isName)
            continue;
        const std::string value = option->results().at(used[option]++);
        if (!isName)
            changes.push_back({change->kind, value, {}});
        else if (changes.empty() || changes.back().kind != SetupChange::Kind::Add || !changes.back().name.empty())
            throw InputError("--name " + value + ": follows no --add");
        else
            changes.back().name = value;
    }
    return changes;
}

void declareRecording(CLI::App& app, RecordCommand& command)
{
    present(
        app.add_option("--record", command.record,
                       "Record as planned, after --set, in real time or, with a standing clock, as fast as possible; "
                       "then compare"),
        "OUT.h5");
    present(
        app.add_option("--compare", command.compare, "Print what the set-up promises beside what a recording holds"),
        "OUT.h5");
}

void declareModules(CLI::App& app, ModuleCommand& command)
{
    constexpr const char* of = "Driver modules, which open real instruments";
    withoutWindow(app.add_flag("--modules", command.list, "List the driver modules and the devices that they find"))
        ->option_text(" ")
        ->group(of);
    app.add_option("--module-folder", command.folders, "Search this folder, too; several in this order")
        ->allow_extra_args(false)
        ->option_text("FOLDER")
        ->group(of);
    withoutWindow(app.add_option("--check-module", command.check,
                                 "Call everything that a module has, and report what it does wrong"))
        ->option_text("FILE")
        ->group(of);
}

void declare(CLI::App& app, CommandLine& line)
{
    app.set_version_flag("--version", "korvell-host " KO_VERSION);
    auto* const headless = app.add_flag("--headless", line.headless, "Run a script without a window");
    headless->option_text(" ");
    app.add_option("--locale", line.locale,
                   "\"system\": the user's regional settings, for --headless instead of English (United States), for "
                   "--sheet instead of its language's")
        ->check(oneOf({"system"}))
        ->option_text("system");
    app.add_option("--language", line.language,
                   "String file or language code; a window without it follows the system's language")
        ->option_text("FILE|CODE");
    app.add_option("--picture", line.picture, "Paint the page into this file and leave")
        ->excludes(headless)
        ->option_text("FILE");
    app.add_option("--capture", line.capture, "Write what is done in the window as a script into this file")
        ->excludes(headless)
        ->option_text("FILE");
    declareSettings(app, line.settings);
    declareChanges(app, line);
    declareRecording(app, line.recording);
    declareModules(app, line.modules);
    app.add_option("SETUP", line.setup, "Set-up file with the instruments")->option_text(" ");
    app.add_option("SCRIPT", line.script, "Script for --headless; none or -: standard input")
        ->needs(headless)
        ->option_text(" ");
}

/// Refuses to write a file that is the program's own or also named for another purpose. Only a set-up may be saved over
/// the file it was read from.
void refuseClashes(const CommandLine& line, const std::function<void(const std::string& file)>& refuseOwn)
{
    struct Named {
        std::string as, file;
        bool isWritten;
    };
    const Named files[]{
        {"the set-up", line.setup, false},    {"the script", line.script == "-" ? std::string() : line.script, false},
        {"--language", line.language, false}, {"--sheet", line.settings.sheet.file, true},
        {"--picture", line.picture, true},    {"--capture", line.capture, true},
        {"--save", line.settings.save, true}, {"--record", line.recording.record, true}};
    for (const Named* file = std::begin(files); file != std::end(files); ++file) {
        if (file->isWritten && !file->file.empty())
            refuseOwn(file->file);
        for (const Named* other = std::begin(files); other != file; ++other) {
            const bool isSavedInPlace = file->as == "--save" && other->as == "the set-up";
            if (file->isWritten && !isSavedInPlace && !file->file.empty() && !other->file.empty() &&
                isSameFile(file->file, other->file))
                throw InputError(file->file + ": named as " + other->as + " and as " + file->as);
        }
    }
}

/// The options use the empty string for "not given".
void refuseEmptyValues(int argc, const char* const* argv)
{
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const std::string before = argv[i - 1];
        if (word.empty())
            throw InputError((i > 1 && before.starts_with('-') ? before : "SETUP") + ": the value is empty");
        if (word.starts_with("--") && word.find('=') == word.size() - 1)
            throw InputError(word.substr(0, word.size() - 1) + ": the value is empty");
    }
}

} // namespace

std::optional<CommandLine> commandLine(int argc, const char* const* argv,
                                       const std::function<void(const std::string& file)>& refuseOwn)
{
    CLI::App app("Shows the timebase editor page on simulated instruments", "korvell-host");
    CommandLine line;
    declare(app, line);
    refuseEmptyValues(argc, argv);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        app.exit(success);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        throw InputError(std::string(error.what()) + "; --help lists the options");
    }
    line.settings.changes = changesIn(app);
    refuseClashes(line, refuseOwn);
    return line;
}

} // namespace ko
