#include "fuzz/Played.h"

#include "faults/Bench.h"
#include "fuzz/Targets.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"

#include <nlohmann/json.hpp>
#include <sstream>

namespace ko::fuzz {

namespace {

/// Returns whether the event is a report with the host as its source: an exception that left a handler.
bool isEscape(const Json& event)
{
    return event["event"] == "report" && event["source"] == "korvell-host" && event["number"] == failure::unspecified &&
           event["description"] != SimulatedFailure{}.description;
}

void checkEvents(const std::string& output, const std::string& script)
{
    const bool fails = script.find("fail") != std::string::npos;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        const Json event = Json::parse(line);
        require(event["line"].is_number() && event["event"].is_string(), "an event has its line and name", line);
        require(fails || !isEscape(event), "only failures leave a handler", line);
    }
}

/// A page that was never shown still has its designed state and is not checked.
void checkPage(const Page& page)
{
    if (!page.isShown)
        return;
    for (const std::string& broken : test::brokenAlways(page))
        require(false, broken, "the page after the script");
}

void checkFault(const ScriptFault& fault, const std::string& script)
{
    const auto lines = 1 + std::count(script.begin(), script.end(), '\n');
    require(fault.line() >= 1 && fault.line() <= lines, "a fault names a line of the script", fault.what());
    require(*fault.what() != '\0', "a fault says what is wrong", script);
}

} // namespace

void checkSaved(const Setup& setup)
{
    std::string text;
    try {
        text = setupText(setup);
    } catch (const nlohmann::json::exception&) {
        return; // a text that is not UTF-8, which a script may contain
    }
    require(parseSetup(text, "saved") == setup, "what is saved is read again", text);
}

void play(const std::string& script, const ScenarioOptions& options)
{
    std::ostringstream output;
    std::istringstream input(script);
    ScenarioOptions harmless = options;
    harmless.mayRecord = false;
    Scenario scenario(harmless, output);
    try {
        scenario.run(input);
        checkPage(scenario.document().page());
    } catch (const ScriptFault& fault) {
        checkFault(fault, script);
    }
    checkEvents(output.str(), script);
    checkSaved(withPresentValues(options.setup, scenario.drivers()));
}

const Setup& demoSetup()
{
    static const Setup setup = loadSetup(KO_DEMO_FOLDER "/engine-bench-demo.json");
    return setup;
}

} // namespace ko::fuzz
