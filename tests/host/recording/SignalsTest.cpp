#include "Recorded.h"

#include "host/recording/Monitor.h"
#include "host/recording/RecordedSignals.h"
#include "host/support/InputError.h"

#include <cmath>
#include <future>
#include <random>

namespace ko {
namespace {

using namespace test;

constexpr float lostSample = std::numeric_limits<float>::quiet_NaN();

/// The extents by their definition.
std::vector<Extent> extentsOf(const std::vector<float>& samples, const SampleSpan& span)
{
    std::vector<Extent> parts(span.count);
    for (std::size_t k = 0; k < samples.size(); ++k) {
        const double place = std::floor((static_cast<double>(k) - span.first) / span.width);
        if (place >= 0 && place < static_cast<double>(span.count))
            parts[static_cast<std::size_t>(place)].add({samples[k], samples[k]});
    }
    return parts;
}

bool contains(const Extent& outer, const Extent& inner)
{
    return inner.isEmpty() || (outer.low <= inner.low && outer.high >= inner.high);
}

TEST(EnvelopeTest, ShowsEveryExtremeOnceWhateverTheLengthWithBoundedMemory)
{
    std::mt19937 random(5);
    const auto below = [&](int bound) { return static_cast<std::int64_t>(random() % static_cast<unsigned>(bound)); };
    for (const std::int64_t width : {1, 4, 16}) {
        const std::int64_t capacity = 64;
        Envelope envelope(width, capacity);
        std::vector<float> samples;
        while (samples.size() < 20000) {
            if (below(8) == 0) {
                const std::int64_t lost = below(4) == 0 ? below(5000) : below(10);
                samples.insert(samples.end(), static_cast<std::size_t>(lost), lostSample);
                envelope.appendLost(lost);
            }
            std::vector<float> block(static_cast<std::size_t>(below(below(4) == 0 ? 3000 : 20)));
            for (float& sample : block)
                sample = below(10) == 0 ? lostSample : static_cast<float>(below(100000));
            samples.insert(samples.end(), block.begin(), block.end());
            envelope.append(block);

            const auto size = static_cast<double>(samples.size());
            ASSERT_EQ(envelope.size(), std::ssize(samples));
            // The end is fine; the whole is coarse; earlier parts lack nothing and add no more than their neighbours.
            const double fine = std::max(0.0, size - 40.0 * static_cast<double>(width));
            const double end = std::floor(fine / static_cast<double>(width)) * static_cast<double>(width);
            const SampleSpan last{.first = end, .width = static_cast<double>(width), .count = 45};
            ASSERT_EQ(envelope.extents(last), extentsOf(samples, last)) << samples.size();
            const SampleSpan any{.first = static_cast<double>(below(static_cast<int>(size) + 1)) - 9.5,
                                 .width = 1.0 + static_cast<double>(below(5000)) / 7.0,
                                 .count = 37};
            const auto shown = envelope.extents(any);
            const auto exact = extentsOf(samples, any);
            const double coarsest = 4.0 * size / static_cast<double>(capacity) + 4.0 * static_cast<double>(width);
            SampleSpan wide{.first = any.first - coarsest, .width = any.width + 2.0 * coarsest, .count = 1};
            for (std::size_t i = 0; i < shown.size(); ++i, wide.first += any.width) {
                ASSERT_TRUE(contains(shown[i], exact[i])) << i << " of " << samples.size();
                ASSERT_TRUE(contains(extentsOf(samples, wide)[0], shown[i])) << i << " of " << samples.size();
            }
        }
        const auto known = std::find_if(samples.rbegin(), samples.rend(), [](float s) { return !std::isnan(s); });
        EXPECT_EQ(envelope.latest(), *known);
        envelope.appendLost(1000000000000);
        const SampleSpan all{.first = 0, .width = 20000 + 5000, .count = 2};
        EXPECT_FALSE(envelope.extents(all)[0].isEmpty());
    }
}

TEST(SignalsTest, MarkersAndClippedSamplesAreInTheFileAndInTheChart)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    // 255 bytes and a letter of two, which does not fit.
    const std::string tooLong = std::string(255, 'x') + "\u00e4";
    RecordingRun* running = nullptr;
    const auto mark = [&](const std::string& text) {
        while (!running->progress().takesMarkers) {
        }
        const std::size_t before = running->chart()->state().markers.size();
        EXPECT_TRUE(running->addMarker(text));
        while (running->chart()->state().markers.size() == before) {
        }
    };
    std::promise<void> begun;
    const auto script = [&](BlockSink& sink) {
        begun.get_future().wait();
        sink.deliver(numbers(50, 100));
        mark("on");
        sink.deliver(numbers(200, 100));
        mark(tooLong);
        sink.deliver(numbers(300, 50));
        sink.ended(350, "");
    };
    const Instruments instruments{std::make_shared<Scripted>(counter(300, R"(, "range": [60, 290])"), script)};
    RecordingRun run(instruments, armed(instruments), into(file));
    EXPECT_FALSE(run.addMarker("before the first sample"));
    running = &run;
    begun.set_value();
    const RecordingProgress end = run.wait();
    EXPECT_FALSE(run.addMarker("after the end"));

    const std::vector<Marker> markers{{0.15, "on"}, {0.3, std::string(255, 'x')}};
    const auto expectMarkers = [&](const std::vector<Marker>& held) {
        ASSERT_EQ(held.size(), markers.size());
        for (std::size_t i = 0; i < held.size(); ++i) {
            EXPECT_NEAR(held[i].time, markers[i].time, 1e-9);
            EXPECT_EQ(held[i].text, markers[i].text);
        }
    };
    const Reading held(file);
    expectMarkers(held.markers());
    expectMarkers(signalsIn(file)->state().markers);
    const ChartState state = run.chart()->state();
    expectMarkers(state.markers);
    // 50 to 60, and 290 to 299.
    EXPECT_EQ(end.instruments[0].clipped, std::vector<std::int64_t>{11 + 10});
    EXPECT_EQ(state.channels[0].clipped, 11 + 10);
    EXPECT_EQ(held.number("instrument-0/channel-0-0", "clipped"), 11 + 10);
    EXPECT_EQ(held.number("instrument-0/channel-0-0", "minimum"), 60.0);
    EXPECT_EQ(held.number("instrument-0/channel-0-0", "maximum"), 290.0);
    EXPECT_EQ(state.channels[0].latest, 299.0F);
    EXPECT_NEAR(state.end(run.chart()->channels()), 0.3, 1e-9);
    const auto extents = run.chart()->extents(0, {.first = 0, .width = 50, .count = 7});
    EXPECT_EQ(extents, (std::vector<Extent>{{}, {50, 99}, {100, 149}, {}, {200, 249}, {250, 299}, {}}));
}

TEST(SignalsTest, AFileIsShownAsTheRecordingWasAndAsFinelyAsItIsAskedFor)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    const std::string noise = R"(, "range": [-1.1, 1.1], "name": "Noise", "signal": {"noise": 0.1})";
    const Instruments instruments =
        instrumentsOf(instrument(R"("samplePeriod": {"value": 0.00001}, "duration": 12)", "", noise.c_str()) + "," +
                      instrument(R"("startTime": 0, "samplePeriod": {"value": 0.1})"));
    RecordingRun run(instruments, armed(instruments), into(file));
    run.wait();
    const auto shown = signalsIn(file);
    const auto live = run.chart();
    ASSERT_EQ(shown->channels().size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        const ChartChannel& was = live->channels()[i];
        const ChartChannel& is = shown->channels()[i];
        EXPECT_EQ(is.channel, was.channel);
        EXPECT_EQ(std::tuple(is.instrument, is.instrumentName, is.period),
                  std::tuple(was.instrument, was.instrumentName, was.period));
    }
    const auto read = [&](std::size_t channel, const SampleSpan& span) {
        (void)shown->extents(channel, span);
        while (shown->isGrowing()) {
        }
        return shown->extents(channel, span);
    };
    const auto samples = Reading(file).samples("instrument-0/channel-0-0");
    for (const SampleSpan& span : {SampleSpan{0, 1024, 1200}, {700000.0, 1, 900}, {1199990.0, 1.5, 20}, {-3, 2, 1000}})
        EXPECT_EQ(read(0, span), extentsOf(samples, span)) << span.first;
    EXPECT_EQ(read(1, {0, 1, 100}), live->extents(1, {0, 1, 100}));
    const ChartState was = live->state();
    const ChartState is = shown->state();
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(is.channels[i].samples, was.channels[i].samples);
        EXPECT_EQ(is.channels[i].clipped, was.channels[i].clipped);
        EXPECT_EQ(is.channels[i].latest, was.channels[i].latest);
    }
    EXPECT_GT(is.channels[0].clipped, 0);
    EXPECT_THROW(signalsIn(folder.file("none.h5")), InputError);
}

TEST(MonitorTest, ShowsWhatAllInstrumentsMeasureUntilItIsStoppedAndOneThatFailsStopsNoOther)
{
    std::promise<void> shown;
    const auto delivers = [&](BlockSink& sink) {
        sink.deliver(numbers(0, 100));
        sink.deliver(numbers(150, 50));
        shown.get_future().wait();
        sink.ended(200, "the cable is unplugged");
    };
    // A start on trigger, which no instrument can send, does not matter; nor does the end of the schedule.
    const std::string schedule = R"("startMode": 2, "duration": 0.001, "samplePeriod": {"value": 0.001})";
    Instruments instruments = instrumentsOf("{\"name\": \"Bare\"}," + instrument(schedule));
    instruments.push_back(std::make_shared<Scripted>(counter(1), delivers));
    instruments.push_back(std::make_shared<Scripted>(counter(1), nullptr));
    Monitor monitor(instruments);
    const auto samples = [&](std::size_t channel) { return monitor.chart()->state().channels[channel].samples; };
    while (samples(0) < 300 || samples(1) < 200)
        EXPECT_FALSE(monitor.isOver());
    EXPECT_EQ(monitor.chart()->extents(1, {.first = 0, .width = 50, .count = 4}),
              (std::vector<Extent>{{0, 49}, {50, 99}, {}, {150, 199}}));
    EXPECT_EQ(monitor.chart()->channels()[1].instrument, 2U);
    shown.set_value();
    while (monitor.failures().size() < 2) {
    }
    EXPECT_FALSE(monitor.isOver());
    monitor.stop();
    EXPECT_TRUE(monitor.waitFor(std::chrono::hours(1)));
    EXPECT_EQ(monitor.failures(),
              (std::vector<std::string>{"Counter: is switched off", "Counter: the cable is unplugged"}));
    EXPECT_GE(samples(0), 300);
    EXPECT_NO_THROW(instruments[1]->acquisition()->arm());
    EXPECT_THROW(Monitor{instrumentsOf("{\"name\": \"Bare\"}")}, RecordingRefusal);
}

} // namespace
} // namespace ko
