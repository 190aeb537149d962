#include "Recorded.h"
#include "host/recording/BlockQueue.h"
#include "host/recording/RecordingTexts.h"

namespace ko::test {
namespace {

/// Checks that each sample is its own number after `base`, or lost; returns how many are lost.
std::int64_t lostOf(const std::vector<float>& samples, float base = 0.0F)
{
    std::int64_t lost = 0;
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (std::isnan(samples[i]))
            ++lost;
        else if (samples[i] != base + static_cast<float>(i))
            ADD_FAILURE() << i << " is " << samples[i];
    return lost;
}

TEST(RecordingFailureTest, LostSamplesKeepTheirPlaceAndAFailingInstrumentStopsNoOther)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    const struct {
        Scripted::Script script;
        std::int64_t samples, lost;
        std::vector<std::string> failures;
        RunState end;
    } cases[]{
        {[](BlockSink& sink) {
             sink.deliver(numbers(0, 100, 2));
             sink.deliver(numbers(150, 60, 2));
             sink.deliver(numbers(200, 10, 2)); // known already
             sink.deliver(numbers(190, 30, 2)); // known in part
             sink.ended(260, "the cable is unplugged");
         },
         260,
         90,
         {"Counter: the cable is unplugged"},
         RunState::Failed},
        {[](BlockSink& sink) {
             sink.deliver(numbers(1, 200000, 2));
             sink.ended(200001, "");
         },
         300,
         1,
         {},
         RunState::Done},
        {[](BlockSink& sink) { sink.ended(0, ""); },
         0,
         0,
         {"Counter: ended after 0 of 300 samples"},
         RunState::Stopped},
        {[](BlockSink& sink) { sink.ended(1000000, ""); }, 300, 300, {}, RunState::Done},
        {nullptr, 0, 0, {"Counter: is switched off"}, RunState::Failed},
    };
    for (const auto& c : cases) {
        auto instruments = instrumentsOf("{\"name\": \"Bare\"}," + instrument(""));
        instruments.push_back(std::make_shared<Scripted>(counter(300, R"(}, {"address": "1:2")"), c.script));
        const RecordingRun run(instruments, armed(instruments), into(file));
        const RecordingProgress end = run.wait();
        EXPECT_EQ(end.state, c.end);
        EXPECT_EQ(end.failures, c.failures);
        EXPECT_FALSE(end.hasFileFailed);
        EXPECT_EQ(end.instruments[1].lost, c.lost);
        const std::string sum = byteText(4.0 * static_cast<double>(10240 + 2 * c.samples));
        EXPECT_NE(progressText(end).find(sum + ", " + std::to_string(c.lost) + " samples lost"), std::string::npos);
        const Reading held(file);
        for (const std::size_t channel : {0U, 1U}) {
            const auto samples = held.samples("instrument-2/channel-0-" + std::to_string(channel));
            EXPECT_EQ(std::ssize(samples), c.samples);
            EXPECT_EQ(lostOf(samples, static_cast<float>(channel) * 1e6F), c.lost);
            // Of the chart, the first channel is another instrument's.
            const auto shown = run.chart()->extents(channel + 1, {.first = 0.0, .width = 1.0, .count = samples.size()});
            for (std::size_t i = 0; i < shown.size(); ++i)
                EXPECT_TRUE(std::isnan(samples[i]) ? shown[i].isEmpty() : (shown[i] == Extent{samples[i], samples[i]}));
        }
        EXPECT_EQ(held.number("instrument-2", "lost"), static_cast<double>(c.lost));
        EXPECT_EQ(held.text("/", "state"), stateText(c.end));
        EXPECT_EQ(held.samples("instrument-1/channel-0-0").size(), 10240U);
    }
}

TEST(RecordingFailureTest, InRealTimeBlocksWithoutRoomAreLostElseTheInstrumentWaits)
{
    const Folder folder;
    const Scripted::Script script = [](BlockSink& sink) {
        for (std::int64_t block = 0; block < 500; ++block)
            sink.deliver(numbers(block * 1000, 1000));
        sink.ended(500000, "");
    };
    for (const bool isPaced : {false, true}) {
        RecordingOptions options = into(folder.file("out.h5"));
        options.isPaced = isPaced;
        options.queueBytes = 10000;
        const RecordingProgress end = recorded({std::make_shared<Scripted>(counter(500000), script)}, options);
        EXPECT_EQ(end.state, RunState::Done);
        const auto samples = Reading(options.file).samples("instrument-0/channel-0-0");
        EXPECT_EQ(samples.size(), 500000U);
        EXPECT_EQ(lostOf(samples), end.instruments[0].lost);
        EXPECT_TRUE(isPaced || end.instruments[0].lost == 0);
    }
}

TEST(RecordingFailureTest, ADiskThatGetsFullEndsTheRecordingWithAWholeFile)
{
    const Folder folder;
    RecordingOptions options = into(folder.file("out.h5"));
    options.isPaced = true;
    options.flushInterval = std::chrono::milliseconds(50);
    options.freeBytes = [calls = 0]() mutable { return ++calls < 4 ? 1e12 : 1e6; };
    const RecordingProgress end = recorded(instrumentsOf(instrument(R"("duration": 1000)")), options);
    EXPECT_EQ(end.state, RunState::Failed);
    EXPECT_TRUE(end.hasFileFailed);
    ASSERT_EQ(end.failures.size(), 1U);
    EXPECT_NE(end.failures[0].find("the disk is nearly full"), std::string::npos);
    const Reading held(options.file);
    EXPECT_EQ(held.text("/", "state"), "failed");
    EXPECT_EQ(std::ssize(held.samples("instrument-0/channel-0-0")), end.instruments[0].samples);
}

TEST(BlockQueueTest, HasRoomForItsBytesForOneBlockOfAnySizeAndForWordsAlways)
{
    BlockQueue queue(8);
    const auto offered = [&](std::size_t samples) { queue.offer({0, Block{0, 1, std::vector<float>(samples)}}); };
    const auto taken = [&] {
        std::vector<std::size_t> sizes;
        while (const auto delivery = queue.take({}))
            sizes.push_back(delivery->what.index() == 1 ? std::get<Block>(delivery->what).samples.size() : 0);
        return sizes;
    };
    using Sizes = std::vector<std::size_t>;
    offered(5);
    offered(1);
    queue.offer({0, Delivery::Triggered{1}});
    EXPECT_EQ(taken(), (Sizes{5, 0})) << "one that is too large, then none";
    offered(1);
    offered(1);
    offered(1);
    EXPECT_EQ(taken(), (Sizes{1, 1}));
    queue.open();
    offered(5);
    offered(5);
    EXPECT_EQ(taken(), (Sizes{5, 5}));
}

} // namespace
} // namespace ko::test
