#include "host/main/CommandLine.h"
#include "host/main/Language.h"
#include "host/main/RecordCommand.h"
#include "host/main/WindowMain.h"
#include "host/modules/Modules.h"
#include "host/recording/HeldRecording.h"
#include "host/scenario/Scenario.h"
#include "host/settings/Settings.h"
#include "host/setup/SetupTemplates.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"
#include "host/support/StandardStreams.h"
#include "host/toolkit/FrameMemory.h"
#include "widgets/services/QtLocale.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

constexpr int expectationFailed = 1;
constexpr int valueRefused = 1;
constexpr int promiseBroken = 1;
constexpr int inputRefused = 2;

/// Returns the text of a set-up file, or of the set-up in a recording.
std::string setupTextOf(const std::string& file)
{
    return ko::isRecordingFile(file) ? ko::heldIn(file).setup : ko::readFile(file);
}

/// Constructs an object that loads the component's texts; an error names the string file.
template <class Made, class... Arguments>
std::unique_ptr<Made> make(const ko::CommandLine& line, const ko::ScenarioOptions& options, Arguments&... arguments)
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

int runHeadless(const ko::CommandLine& line, const std::string& language,
                const std::shared_ptr<ko::DeviceSource>& devices)
{
    ko::ScenarioOptions options;
    options.devices = devices;
    options.setup = ko::parseSetup(setupTextOf(line.setup), line.setup);
    options.refuseOwn = [&line](const std::string& file) {
        ko::FrameMemory::refuseUsers(file);
        ko::refuseSame(file, line.setup, "the set-up of the script");
        ko::refuseSame(file, line.script, "the script itself");
    };
    options.language = language;
    if (line.locale == "system")
        options.locale = ko::toLocale(QLocale::system());
    if (line.script == "-")
        return runScript(*make<ko::Scenario>(line, options, std::cout), std::cin, "standard input");
    options.folder = std::filesystem::path(line.script).parent_path().string();
    // Opened only once, because it may be a pipe.
    std::ifstream script = ko::openFile(line.script);
    return runScript(*make<ko::Scenario>(line, options, std::cout), script, line.script);
}

int useSettings(const ko::CommandLine& line, const std::string& language,
                const std::shared_ptr<ko::DeviceSource>& devices)
{
    ko::ScenarioOptions options;
    options.devices = devices;
    const ko::SetupTemplate source = line.startFrom.empty() ? ko::SetupTemplate{{}, line.setup, setupTextOf(line.setup)}
                                                            : ko::templateNamed(line.startFrom);
    options.setup = ko::parseSetup(source.content, source.file);
    for (const ko::SetupChange& change : line.settings.changes)
        ko::applyChange(options.setup, change);
    options.language = language;
    std::optional<ko::Locale> sheetLocale;
    if (line.locale == "system")
        sheetLocale = ko::toLocale(QLocale::system());
    const auto page = make<ko::HeadlessPage>(line, options);
    ko::runSettings(line.settings, {line.setup, source.content, options, sheetLocale}, *page);
    return ko::runRecording(line.recording, options.setup, *page) ? 0 : promiseBroken;
}

void checkSource(const ko::CommandLine& line)
{
    if (!line.startFrom.empty() && !line.setup.empty())
        throw ko::InputError("--new " + line.startFrom + ": begins without a set-up file, " + line.setup);
    if (!line.startFrom.empty() && !line.settings.isGiven() && !line.recording.isGiven())
        throw ko::InputError("--new " + line.startFrom + ": needs --save FILE");
    if (line.setup.empty() && line.startFrom.empty())
        throw ko::InputError("give a set-up file, e.g. korvell-host bench.json --list");
}

int run(const ko::CommandLine& line, int& argc, char** argv)
{
    const bool usesSetup =
        line.headless || line.settings.isGiven() || line.recording.isGiven() || !line.startFrom.empty();
    const bool inWindow = !usesSetup && !line.modules.isGiven();
    const bool followsSystem = line.language.empty() && inWindow;
    if (!line.locale.empty() && !line.headless && line.settings.sheet.file.empty())
        throw ko::InputError("--locale requires --headless or --sheet");
    if (usesSetup)
        checkSource(line);
    const std::string language = followsSystem ? ko::systemLanguageContent() : ko::languageContent(line.language);
    const auto modules = ko::modulesOf(line.modules);
    if (line.modules.isGiven() && !ko::runModules(line.modules, *modules))
        return promiseBroken;
    if (line.modules.isGiven() && !usesSetup && line.setup.empty())
        return 0;
    if (inWindow)
        return ko::runWindow(argc, argv,
                             {.devices = modules,
                              .setup = line.setup,
                              .language = language,
                              .capture = line.capture,
                              .picture = line.picture});
    return line.headless ? runHeadless(line, language, modules) : useSettings(line, language, modules);
}

} // namespace

int main(int argc, char** argv)
{
    // Exceeding the file size limit is then reported as a failed write, like a full disk.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    try {
        const auto line = ko::commandLine(argc, argv, ko::FrameMemory::refuseUsers);
        const int status = line ? run(*line, argc, argv) : 0;
        ko::finishOutput();
        return status;
    } catch (const ko::Refusal& refusal) {
        ko::complain(refusal.what());
        return valueRefused;
    } catch (const ko::RecordingRefusal& refusal) {
        ko::complain(refusal.what());
        return valueRefused;
    } catch (const std::exception& error) {
        ko::complain(error.what());
        return inputRefused;
    }
}
