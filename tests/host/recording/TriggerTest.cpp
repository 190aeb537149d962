#include "Recorded.h"

#include "host/recording/RecordedSignals.h"

namespace ko {
namespace {

using namespace test;

/// A start master whose first channel triggers, a listener, a scanner that listens and an analyzer that does not.
std::string wired(int blockSize, const std::string& trigger, const std::string& masterChannels = "")
{
    const auto instrument = [&](const std::string& name, const std::string& channels, const std::string& period,
                                const std::string& lines) {
        return R"({"name": ")" + name + R"(", "groups": [{"name": "g", "channels": [)" + channels +
               R"(]}], "timebase": {"samplePeriod": {"value": )" + period + R"(}, "blockSize": {"value": )" +
               std::to_string(blockSize) + R"(}, "duration": 0.5, "startMode": 2, "scanPeriod": {"value": )" + period +
               "}}, \"triggerLines\": {" + lines + "}";
    };
    const std::string ramp = R"({"address": "2:1", "signal": {"shape": "triangle", "frequency": 0.001}})";
    return instrument(
               "Master",
               R"({"address": "1:1", "triggerSource": true, "signal": {"frequency": 2}, "triggerParameters": [)" +
                   trigger + "]}" + masterChannels,
               "0.001", R"("startMasterRank": 5, "startTriggerLine": 3, "scanMasterRank": 7)") +
           "}," + instrument("Listener", ramp, "0.004", R"("startMasterRank": 9, "startTriggerInput": 3)") + "}," +
           instrument("Scanner", ramp, "0.1", R"("startTriggerInput": 3)") + R"(, "samplingMode": 2},)" +
           instrument("Alone", ramp, "0.002", R"("startTriggerInput": 4)") + "}";
}

std::string parameter(const char* role, const std::string& value)
{
    const bool isText = value.starts_with('"');
    return std::string(R"({"id": 1, "name": "n", "type": ")") + (isText ? "String" : "Float") + R"(", "role": ")" +
           role + "\", \"value\": " + value + "}";
}

TEST(TriggerTest, TheTriggerSampleIsWhereTheFormulaSaysForAnyBlockSize)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    const struct {
        std::string level, slope;
        std::int64_t pretrigger, trigger;
    } cases[]{
        {"0.99", "\"Rising\"", 0, 114}, {"0.99", "\"Rising\"", 60, 114}, {"0.99", "\"Rising\"", 115, 614},
        {"0.9", "\"Falling\"", 0, 161}, {"-0.9", "\"Either\"", 2, 340},  {"-0.9", "\"Rising\"", 2, 411},
    };
    const Signal sine({.frequency = 2}, "1:1", 0.001);
    for (const int blockSize : {1, 13, 1024, 65536})
        for (const auto& c : cases) {
            const auto instruments =
                instrumentsOf(wired(blockSize, parameter("level", c.level) + "," + parameter("slope", c.slope) + "," +
                                                   parameter("pretrigger", std::to_string(c.pretrigger))));
            const RecordingRun run(instruments, armed(instruments), into(file));
            const RecordingProgress end = run.wait();
            ASSERT_EQ(end.state, RunState::Done) << testing::PrintToString(end.failures);
            const Reading held(file);
            const auto samples = held.samples("instrument-0/channel-0-0");
            const std::int64_t first = c.trigger - c.pretrigger;
            EXPECT_EQ(std::ssize(samples), (500 + blockSize - 1) / blockSize * blockSize);
            for (std::size_t i = 0; i < samples.size(); ++i)
                ASSERT_NEAR(samples[i], sine.at(first + static_cast<std::int64_t>(i)), 1e-6) << i;
            // The start is that of the instrument which has begun when it was armed.
            EXPECT_EQ(held.text("/", "start").substr(0, 26), "2026-11-21T09:30:00.000000");
            const auto time = static_cast<double>(c.trigger) * 0.001;
            for (const auto& shown : {run.chart(), signalsIn(file)})
                EXPECT_NEAR(shown->state().trigger.value_or(-1.0), time, 1e-9);
            EXPECT_NEAR(held.number("instrument-0", "start_offset"), static_cast<double>(first) * 0.001, 1e-12);
            EXPECT_NEAR(held.number("instrument-1", "start_offset"), std::ceil(time / 0.004 - 1e-9) * 0.004, 1e-12);
            EXPECT_NEAR(held.number("instrument-2", "start_offset"), std::ceil(time / 0.1 - 1e-9) * 0.1, 1e-12);
            EXPECT_EQ(held.number("instrument-3", "start_offset"), 0.0);
            const Signal ramp({.shape = Shape::Triangle, .frequency = 0.001}, "2:1", 1.0);
            for (const char* const it : {"instrument-1", "instrument-2", "instrument-3"})
                EXPECT_NEAR(held.samples(it + std::string("/channel-0-0"))[0],
                            -1.0 + 0.004 * held.number(it, "start_offset"), 1e-6);
        }
}

TEST(TriggerTest, WithoutInstrumentsThatBeginBeforeTheEarliestSampleIsTheStart)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    const std::string all = wired(7, parameter("level", "0.9") + "," + parameter("pretrigger", "50"));
    auto instruments = instrumentsOf(all);
    instruments.pop_back();
    const RecordingProgress end = recorded(instruments, into(file));
    EXPECT_EQ(Reading(file).text("/", "start").substr(0, 26), "2026-11-21T09:30:00.040000");
    EXPECT_EQ(Reading(file).number("instrument-0", "start_offset"), 0.0);
    EXPECT_NEAR(Reading(file).number("instrument-2", "start_offset"), 0.06, 1e-12);
    EXPECT_NEAR(end.instruments[2].startOffset, 0.06, 1e-12);

    // A channel that triggers need not be recorded.
    std::string silent = all;
    silent.replace(silent.find("\"triggerSource\""), 0, "\"enabled\": 0, ");
    instruments = instrumentsOf(silent);
    instruments.pop_back();
    EXPECT_EQ(recorded(instruments, into(file)).state, RunState::Done);
    EXPECT_FALSE(Reading(file).has("instrument-0"));
    EXPECT_EQ(Reading(file).text("/", "start").substr(0, 26), "2026-11-21T09:30:00.092000");
}

TEST(TriggerTest, WithoutATriggerTheRecordingHasFailedAndKeepsWhatBeganBefore)
{
    const Folder folder;
    const RecordingProgress end =
        recorded(instrumentsOf(wired(1, parameter("level", "1.5"))), into(folder.file("out.h5")));
    EXPECT_EQ(end.state, RunState::Failed);
    EXPECT_EQ(end.failures, std::vector<std::string>{"Master: no trigger within 3600 seconds"});
    const Reading held(folder.file("out.h5"));
    EXPECT_EQ(held.text("/", "state"), "failed");
    EXPECT_EQ(held.samples("instrument-0/channel-0-0").size(), 0U);
    EXPECT_EQ(held.samples("instrument-1/channel-0-0").size(), 0U);
    EXPECT_EQ(held.samples("instrument-3/channel-0-0").size(), 250U);
}

TEST(TriggerTest, ARecordingThatWaitsForItsTriggerCanBeStopped)
{
    const Folder folder;
    RecordingOptions options = into(folder.file("out.h5"));
    options.isPaced = true;
    auto instruments = instrumentsOf(wired(1, parameter("level", "1.5")));
    instruments.pop_back();
    RecordingRun run(instruments, armed(instruments), options);
    while (run.progress().state != RunState::WaitingForTrigger)
        run.waitFor(std::chrono::milliseconds(1));
    run.stop();
    EXPECT_EQ(run.wait().state, RunState::Stopped);
}

} // namespace
} // namespace ko
