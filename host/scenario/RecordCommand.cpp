#include "host/recording/ReadOnlyPage.h"
#include "host/recording/RecordingRun.h"
#include "host/recording/RecordingTexts.h"
#include "host/scenario/Commands.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"
#include "support/TextNumbers.h"

#include <nlohmann/json.hpp>

namespace ko {

namespace {

Json recordedJson(const InstrumentProgress& instrument)
{
    return {{"name", instrument.name},      {"samples", instrument.samples},   {"bytes", instrument.bytes},
            {"period", instrument.period},  {"start", instrument.startOffset}, {"lost", instrument.lost},
            {"clipped", instrument.clipped}};
}

Json recordedJson(const std::string& file, const RecordingProgress& end)
{
    Json members{{"file", file}, {"state", stateText(end.state)}, {"instruments", Json::array()}};
    for (const InstrumentProgress& instrument : end.instruments)
        members["instruments"].push_back(recordedJson(instrument));
    if (!end.failures.empty())
        members["failures"] = end.failures;
    return members;
}

RecordingProgress recordInto(const Scenario& scenario, const std::string& file, std::optional<DateTime> date)
{
    const std::string path = scenario.path(file);
    if (scenario.refuseOwn)
        scenario.refuseOwn(path);
    const Instruments instruments(scenario.drivers().begin(), scenario.drivers().end());
    RecordingPlan plan =
        planRecording(instruments, PlanFor::Recording, [&](int number) { return scenario.text(number); });
    plan.startOn(date);
    const Setup setup{.title = scenario.title(), .clock = scenario.clock.time, .instruments = {}};
    const RecordingRun run(instruments, std::move(plan),
                           {.file = path,
                            .title = setup.title,
                            .setup = setupText(withPresentValues(setup, scenario.drivers())),
                            .clock = setup.clock,
                            .isPaced = false,
                            .freeBytes = {}});
    return run.wait();
}

void record(Scenario& scenario, const Arguments& words)
{
    constexpr int exclamation = 48;
    if (scenario.skipsRecordings)
        return scenario.log.event("inert", {{"control", CallValue()}});
    if (!scenario.mayRecord)
        scenario.refuse("this program records nothing");
    const Page& page = scenario.document().page();
    const auto date = dateOfStart(page, scenario.stage().locale(), scenario.clock.now());
    const auto setReadOnly = [&](bool on) { scenario.rebuild([&] { scenario.document().mode().setReadOnly(on); }); };
    const ReadOnlyPage readOnly(setReadOnly, page.readOnly);
    try {
        scenario.log.jsonEvent("recorded", recordedJson(words.text(0), recordInto(scenario, words.text(0), date)));
    } catch (const RecordingRefusal& refusal) {
        scenario.messageBox.show(refusal.what(), scenario.text(textNumber::page::error), exclamation);
    }
    // What a device offers that was opened for the recording is no edit.
    scenario.history().absorb();
}

} // namespace

std::span<const Command> recordCommands()
{
    static constexpr Command commands[]{{"record", Giver::Host, 1, 1, record}};
    return commands;
}

} // namespace ko
