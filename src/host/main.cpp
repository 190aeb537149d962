#include "host/FileWriter.h"
#include "host/InputError.h"
#include "host/Language.h"
#include "host/Scenario.h"
#include "host/Settings.h"
#include "host/SettingsCommand.h"
#include "host/StandardStreams.h"
#include "host/WindowMain.h"
#include "widgets/QtLocale.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

constexpr int expectationFailed = 1;
constexpr int valueRefused = 1;
constexpr int inputRefused = 2;

struct CommandLine {
    bool headless = false;
    std::string locale;
    std::string language;
    std::string picture;
    std::string capture;
    std::string setup;
    std::string script = "-";
    ko::SettingsCommand settings;
};

void declare(CLI::App& app, CommandLine& line)
{
    app.set_version_flag("--version", "korvell-host " KO_VERSION);
    auto* const headless = app.add_flag("--headless", line.headless, "Run a script without a window");
    headless->option_text(" ");
    app.add_option("--locale", line.locale,
                   "\"system\": the user's regional settings, for --headless instead of English (United States), for "
                   "--sheet instead of its language's")
        ->check(ko::oneOf({"system"}))
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
    app.add_option("SETUP", line.setup, "Set-up file with the simulated instruments")->option_text(" ");
    app.add_option("SCRIPT", line.script, "Script for --headless; none or -: standard input")
        ->needs(headless)
        ->option_text(" ");
}

/// Opened once only: a script may come through a pipe.
std::ifstream openScript(const std::string& file)
{
    ko::refuseDevice(file);
    std::ifstream script(file, std::ios::binary);
    if (!script)
        throw ko::InputError(file + ": cannot be opened");
    return script;
}

/// Makes what needs the component's texts: a string file that cannot be understood is named.
template <class Made, class... Arguments>
std::unique_ptr<Made> make(const CommandLine& line, const ko::ScenarioOptions& options, Arguments&... arguments)
{
    try {
        return std::make_unique<Made>(options, arguments...);
    } catch (const std::exception& error) {
        throw ko::InputError(line.language + ": " + error.what());
    }
}

int runScript(ko::Scenario& scenario, std::istream& script, const std::string& name)
{
    try {
        return scenario.run(script) ? 0 : expectationFailed;
    } catch (const ko::ScriptFault& fault) {
        throw ko::InputError(name, fault.line(), fault.what());
    }
}

int runHeadless(const CommandLine& line, const std::string& language)
{
    ko::ScenarioOptions options;
    options.setup = ko::loadSetup(line.setup);
    options.language = language;
    if (line.locale == "system")
        options.locale = ko::toLocale(QLocale::system());
    if (line.script == "-")
        return runScript(*make<ko::Scenario>(line, options, std::cout), std::cin, "standard input");
    options.folder = std::filesystem::path(line.script).parent_path().string();
    std::ifstream script = openScript(line.script);
    return runScript(*make<ko::Scenario>(line, options, std::cout), script, line.script);
}

int useSettings(const CommandLine& line, const std::string& language)
{
    ko::ScenarioOptions options;
    const std::string content = ko::readFile(line.setup);
    options.setup = ko::parseSetup(content, line.setup);
    options.language = language;
    std::optional<ko::Locale> sheetLocale;
    if (line.locale == "system")
        sheetLocale = ko::toLocale(QLocale::system());
    ko::runSettings(line.settings, {line.setup, content, options, sheetLocale}, *make<ko::PlayedPage>(line, options));
    return 0;
}

/// A file that is written is named for nothing else: only a set-up may be saved where it was read.
void refuseClashes(const CommandLine& line)
{
    struct Named {
        std::string as, file;
        bool isWritten;
    };
    const Named files[]{
        {"the set-up", line.setup, false},    {"the script", line.script == "-" ? std::string() : line.script, false},
        {"--language", line.language, false}, {"--sheet", line.settings.sheet.file, true},
        {"--picture", line.picture, true},    {"--capture", line.capture, true},
        {"--save", line.settings.save, true}};
    for (const Named* file = std::begin(files); file != std::end(files); ++file)
        for (const Named* other = std::begin(files); other != file; ++other) {
            const bool isSavedInPlace = file->as == "--save" && other->as == "the set-up";
            if (file->isWritten && !isSavedInPlace && !file->file.empty() && !other->file.empty() &&
                ko::isSameFile(file->file, other->file))
                throw ko::InputError(file->file + ": named as " + other->as + " and as " + file->as);
        }
}

/// An empty value would read as if the option was not there.
void refuseEmptyValues(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const std::string before = argv[i - 1];
        if (word.empty())
            throw ko::InputError((i > 1 && before.starts_with('-') ? before : "SETUP") + ": the value is empty");
        if (word.starts_with("--") && word.find('=') == word.size() - 1)
            throw ko::InputError(word.substr(0, word.size() - 1) + ": the value is empty");
    }
}

int run(const CommandLine& line, int& argc, char** argv)
{
    refuseClashes(line);
    const bool inWindow = !line.headless && !line.settings.isGiven();
    const bool followsSystem = line.language.empty() && inWindow;
    if (!line.locale.empty() && !line.headless && line.settings.sheet.file.empty())
        throw ko::InputError("--locale requires --headless or --sheet");
    const std::string language = followsSystem ? ko::systemLanguageContent() : ko::languageContent(line.language);
    if (inWindow)
        return ko::runWindow(
            argc, argv, {.setup = line.setup, .language = language, .capture = line.capture, .picture = line.picture});
    if (line.setup.empty())
        throw ko::InputError("give a set-up file, e.g. korvell-host bench.json --list");
    return line.headless ? runHeadless(line, language) : useSettings(line, language);
}

int launch(int& argc, char** argv)
{
    CLI::App app("Shows the timebase editor page on simulated instruments", "korvell-host");
    CommandLine line;
    declare(app, line);
    refuseEmptyValues(argc, argv);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& error) {
        return app.exit(error);
    } catch (const CLI::ParseError& error) {
        throw ko::InputError(std::string(error.what()) + "; --help lists the options");
    }
    return run(line, argc, argv);
}

} // namespace

int main(int argc, char** argv)
{
    // A file that must not grow is one that cannot be written, as on a full disk.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    try {
        const int status = launch(argc, argv);
        ko::finishOutput();
        return status;
    } catch (const ko::Refusal& refusal) {
        ko::complain(refusal.what());
        return valueRefused;
    } catch (const std::exception& error) {
        ko::complain(error.what());
        return inputRefused;
    }
}
