#include "Recorded.h"

#include "host/recording/Comparison.h"
#include "host/recording/Moments.h"
#include "host/recording/RecordingTexts.h"
#include "host/recording/UnfinishedFile.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"

#include <sstream>

namespace ko {
namespace {

using namespace test;

/// A digitizer with two channels that round differently, an analyzer and a scanner.
std::string bench(int blockSize, const std::string& schedule)
{
    const std::string block = std::to_string(blockSize);
    return R"({"name": "Digitizer", "groups": [{"name": "g", "channels": [
        {"address": "0:1:1", "name": "Crank", "unit": "bar", "signal": {"frequency": 3, "amplitude": 2, "offset": 1}},
        {"address": "0:1:2", "enabled": 0},
        {"address": "0:1:3", "signal": {"shape": "triangle", "frequency": 0.5, "noise": 0.1, "seed": 3}}]}],
        "timebase": {"samplePeriod": {"value": 0.0003, "choices": [0.0003, 0.001]},
        "blockSize": {"value": )" +
           block + "}," + schedule +
           R"(}}, {"name": "Bare"}, {"name": "Analyzer", "groups": [{"name": "g", "channels": []},
        {"name": "h", "channels": [{"address": "2:1", "signal": {"shape": "square", "frequency": 7}}]}],
        "timebase": {"samplePeriod": {"value": 0.001}, "blockSize": {"value": )" +
           block + "}," + schedule +
           R"(}}, {"name": "Scanner \u00e4", "samplingMode": 2, "groups": [{"name": "g", "channels": [
        {"address": "3:1", "signal": {"frequency": 0.25, "phase": 1}}]}],
        "timebase": {"scanPeriod": {"value": 0.1}, )" +
           schedule + "}}";
}

/// Checks that each sample is the one of the formula, `first` being the number of the first one.
void expectSignal(const std::vector<float>& samples, const Signal& signal, std::int64_t first = 0)
{
    for (std::size_t i = 0; i < samples.size(); ++i)
        ASSERT_NEAR(samples[i], signal.at(first + static_cast<std::int64_t>(i)), 1e-6) << i;
}

TEST(RecordingTest, HoldsWhatIsPlannedForEveryBlockSizeStartAndStop)
{
    const Folder folder;
    const struct {
        const char *schedule, *start;
    } schedules[]{
        {R"("duration": 7.77)", "2026-11-21T09:30:00.000000"},
        {R"("duration": 7.77, "stopMode": 1)", "2026-11-21T09:30:00.000000"},
        {R"("duration": 7.77, "startMode": 1, "startTime": 0.5, "stopMode": 1)", "2026-11-21T12:00:00.000000"},
        {R"("duration": 7.77, "startMode": 1, "startTime": 46347.395833333336)", "2026-11-21T09:30:00.000000"},
    };
    const std::string file = folder.file("out.h5");
    for (const int blockSize : {1, 7, 1000, 1024, 16385, 65536})
        for (const auto& schedule : schedules) {
            const auto instruments = instrumentsOf(bench(blockSize, schedule.schedule));
            const RecordingPlan plan = armed(instruments);
            const RecordingProgress end = RecordingRun(instruments, plan, into(file)).wait();
            EXPECT_EQ(end.state, RunState::Done);
            EXPECT_EQ(end.failures, std::vector<std::string>());
            const Comparison comparison = compare(plan, heldIn(file));
            EXPECT_TRUE(comparison.isKept) << comparison.text;

            const Reading held(file);
            const auto blocks = [&](int samples) { return (samples + blockSize - 1) / blockSize * blockSize; };
            const auto crank = held.samples("instrument-0/channel-0-0");
            EXPECT_EQ(std::ssize(crank), blocks(25900));
            EXPECT_EQ(held.samples("instrument-2/channel-1-0").size(), blocks(7770));
            EXPECT_EQ(held.samples("instrument-3/channel-0-0").size(), 78U);
            expectSignal(crank, Signal({.frequency = 3, .amplitude = 2, .offset = 1}, "0:1:1", 0.0003));
            expectSignal(
                held.samples("instrument-0/channel-0-2"),
                Signal({.shape = Shape::Triangle, .frequency = 0.5, .noise = 0.1, .seed = 3}, "0:1:3", 0.0003));
            expectSignal(held.samples("instrument-2/channel-1-0"),
                         Signal({.shape = Shape::Square, .frequency = 7}, "2:1", 0.001));
            expectSignal(held.samples("instrument-3/channel-0-0"), Signal({.frequency = 0.25, .phase = 1}, "3:1", 0.1));
            EXPECT_EQ(held.text("/", "start").substr(0, 26), schedule.start);
            EXPECT_EQ(held.chunk("instrument-0/channel-0-0") % static_cast<hsize_t>(blockSize), 0U);
            EXPECT_GE(held.chunk("instrument-0/channel-0-0"), 16384U);
        }
}

TEST(RecordingTest, TheFileDescribesItself)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    recorded(instrumentsOf(bench(100, R"("duration": 1)")), into(file));
    const Reading held(file);
    const auto texts = [&](const std::string& object, std::initializer_list<const char*> attributes) {
        std::string all;
        for (const char* const attribute : attributes)
            all += held.text(object, attribute) + "|";
        return all;
    };
    EXPECT_EQ(texts("/", {"title", "state", "setup", "program"}), "Bench|complete|{}|" + programText() + "|");
    EXPECT_EQ(texts("instrument-0", {"name", "kind"}), "Digitizer|dynamic|");
    EXPECT_EQ(texts("instrument-3", {"name", "kind"}), "Scanner \u00e4|static|");
    EXPECT_EQ(texts("instrument-0/channel-0-0", {"address", "name", "unit"}), "0:1:1|Crank|bar|");
    EXPECT_EQ(texts("instrument-0/channel-0-2", {"unit"}), "V|");
    EXPECT_EQ(held.text("/", "stop").substr(0, 26), "2026-11-21T09:30:01.100000");
    EXPECT_EQ(held.text("/", "created").substr(0, 26), "2026-11-21T09:30:00.000000");
    EXPECT_EQ(held.text("/", "plan"),
              R"({"startMode":0,"startTime":0.0,"instruments":[{"index":0,"name":"Digitizer","kind":"dynamic",)"
              R"("samples":3400,"channels":2,"period":0.0003,"blockSize":100,"bytes":27200.0},{"index":2,)"
              R"("name":"Analyzer","kind":"dynamic","samples":1000,"channels":1,"period":0.001,"blockSize":100,)"
              R"("bytes":4000.0},{"index":3,"name":"Scanner )"
              "\u00e4"
              R"(","kind":"static","samples":11,"channels":1,)"
              R"("period":0.1,"blockSize":1,"bytes":44.0}]})");
    const std::pair<const char*, double> numbers[]{
        {"period", 0.0003}, {"block_size", 100.0}, {"start_offset", 0.0}, {"lost", 0.0}};
    for (const auto& [attribute, number] : numbers)
        EXPECT_EQ(held.number("instrument-0", attribute), number) << attribute;
    EXPECT_EQ(held.number("instrument-3", "block_size"), 1.0);
    EXPECT_EQ(held.chunk("instrument-3/channel-0-0"), 1024U);
    for (const char* const there : {"markers/time", "markers/text"})
        EXPECT_TRUE(held.has(there));
    for (const char* const absent : {"instrument-1", "instrument-0/channel-0-1"})
        EXPECT_FALSE(held.has(absent));
}

TEST(RecordingTest, WhatDiffersFromThePlanIsSaid)
{
    const Folder folder;
    const std::string file = folder.file("out.h5"), second = R"("duration": 1)";
    recorded(instrumentsOf(bench(100, second)), into(file));
    const std::string same = bench(100, second), rest = same.substr(same.find("{\"name\": \"Bare\""));
    const struct {
        std::string drivers;
        std::vector<std::string> differing;
    } cases[]{
        {same, {}},
        {bench(100, R"("duration": 1.1)"), {"samples", "samples", "scans"}},
        {bench(50, second), {"samples", "block size", "block size"}},
        {instrument("") + "," + rest, {"samples", "period", "block size", "channels"}},
        {"{\"name\": \"gone\"}," + rest, {"channels"}},
    };
    for (const auto& c : cases) {
        const Comparison comparison = compare(armed(instrumentsOf(c.drivers)), heldIn(file));
        EXPECT_EQ(comparison.isKept, c.differing.empty());
        std::istringstream lines(comparison.text);
        std::vector<std::string> differing;
        for (std::string line; std::getline(lines, line);)
            if (const std::size_t figure = line.find_first_not_of(' ', line.find("  ")); line.ends_with("differs"))
                differing.push_back(line.substr(figure, line.find("  ", figure) - figure));
        EXPECT_EQ(differing, c.differing) << comparison.text;
    }
    HeldRecording lossy = heldIn(file);
    lossy.instruments[0].lost = 1;
    lossy.instruments[0].name = "üüüüüüüüüüüü";
    const Comparison lost = compare(armed(instrumentsOf(same)), lossy);
    EXPECT_FALSE(lost.isKept);
    EXPECT_NE(lost.text.find("  1" + std::string(13, ' ') + "differs"), std::string::npos) << lost.text;
    EXPECT_THROW(heldIn(folder.file("none.h5")), InputError);
    writeWhole(folder.file("text.h5"), "no recording");
    EXPECT_THROW(heldIn(folder.file("text.h5")), InputError);
    EXPECT_FALSE(clearUnfinished(folder.file("text.h5")));
}

TEST(RecordingTest, CanBeReadWhileItIsWrittenAndStoppedWithWhatItHas)
{
    const Folder folder;
    RecordingOptions options = into(folder.file("out.h5"));
    options.isPaced = true;
    options.clock.reset();
    const auto instruments = instrumentsOf(bench(64, R"("duration": 3600)"));
    RecordingRun run(instruments, armed(instruments), options);
    std::size_t seen = 0;
    while (seen == 0) {
        EXPECT_FALSE(run.waitFor(std::chrono::milliseconds(20)));
        const Reading held(options.file, H5F_ACC_RDONLY | H5F_ACC_SWMR_READ);
        EXPECT_EQ(held.text("/", "state"), "recording");
        const auto samples = held.samples("instrument-0/channel-0-0");
        expectSignal(samples, Signal({.frequency = 3, .amplitude = 2, .offset = 1}, "0:1:1", 0.0003));
        seen = samples.size();
    }
    EXPECT_EQ(run.progress().state, RunState::Recording);
    run.stop();
    const RecordingProgress end = run.wait();
    EXPECT_EQ(end.state, RunState::Stopped);
    const Reading held(options.file);
    EXPECT_EQ(held.text("/", "state"), "stopped");
    const auto samples = held.samples("instrument-0/channel-0-0");
    EXPECT_GE(samples.size(), seen);
    EXPECT_EQ(std::ssize(samples), end.instruments[0].samples);
    EXPECT_EQ(end.instruments[0].lost, 0);
    expectSignal(samples, Signal({.frequency = 3, .amplitude = 2, .offset = 1}, "0:1:1", 0.0003));
}

TEST(RecordingTest, AnEarlierRecordingIsKeptAndAPlaceWithoutRoomRefused)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    for (const char* const duration : {"1", "2", "3"})
        recorded(instrumentsOf(bench(1, std::string(R"("duration": )") + duration)), into(file));
    EXPECT_EQ(Reading(file).samples("instrument-2/channel-1-0").size(), 3000U);
    EXPECT_EQ(Reading(file + "~").samples("instrument-2/channel-1-0").size(), 1000U);
    EXPECT_EQ(Reading(file + "~2").samples("instrument-2/channel-1-0").size(), 2000U);

    const auto instruments = instrumentsOf(bench(1, R"("duration": 1)"));
    RecordingOptions full = into(folder.file("full.h5"));
    full.freeBytes = [] { return 1000.0; };
    EXPECT_THROW(recorded(instruments, full), RecordingRefusal);
    EXPECT_THROW(recorded(instruments, into(folder.file("no/where.h5"))), std::runtime_error);
    EXPECT_THROW(recorded(instruments, into("/dev/null")), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(full.file));
    TemporaryFile other(folder.path, 0600);
    other.moveTo(full.file);
    EXPECT_THROW(recorded(instruments, into(full.file)), std::runtime_error) << "another program is recording it";
    const auto late = instrumentsOf(bench(1, R"("startMode": 1, "startTime": 46347.3958)"));
    EXPECT_THROW(recorded(late, into(file)), RecordingRefusal);
    // The instruments are disarmed each time.
    EXPECT_EQ(recorded(instruments, into(file)).state, RunState::Done);
}

TEST(RecordingTest, WaitsForItsTimeAndCanBeStoppedBefore)
{
    const Folder folder;
    const auto instruments = instrumentsOf(bench(1, R"("duration": 0, "startMode": 1, "startTime": 2900000)"));
    RecordingOptions options = into(folder.file("out.h5"));
    RecordingPlan plan = armed(instruments);
    // A device is waited for also where simulated instruments record as fast as possible.
    for (const bool isDevice : {false, true}) {
        options.isPaced = !isDevice;
        options.clock = isDevice ? std::nullopt : options.clock;
        plan.isRealTime = isDevice;
        RecordingRun run(instruments, plan, options);
        while (run.progress().state != RunState::WaitingForTime)
            std::this_thread::yield();
        run.stop();
        EXPECT_EQ(run.wait().state, RunState::Stopped);
        EXPECT_EQ(Reading(options.file).samples("instrument-0/channel-0-0").size(), 0U);
        armed(instruments);
    }
    // One that has begun is not that of the first sample.
    const std::string before = isoText(momentNow({}));
    plan.startTime = *readClockTime(before.substr(0, 19).replace(10, 1, " "));
    RecordingRun(instruments, plan, options).wait();
    EXPECT_LE(before, Reading(options.file).text("/", "start"));
}

} // namespace
} // namespace ko
