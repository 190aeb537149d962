#include "Recorded.h"

#include "host/recording/Hdf5.h"
#include "host/recording/HeldRecording.h"
#include "host/recording/LiveSignals.h"
#include "host/recording/Monitor.h"
#include "host/recording/RecordedSignals.h"
#include "host/support/InputError.h"

#include <cmath>
#include <future>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

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
    for (const std::int64_t width : {std::int64_t{1}, std::int64_t{4}, std::int64_t{16}, std::int64_t{1} << 40}) {
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

TEST(SignalsTest, SamplesOfAnyPeriodAreShown)
{
    for (const double period : {1e-3, 1e-20, 1e-24, 5e-324, 0.0}) {
        PlannedInstrument planned;
        planned.settings.period = period;
        planned.settings.channels = {{}};
        LiveSignals live({planned});
        live.append(0, numbers(0, 100000), 0, 100000);
        for (const double width : {1e5, 1e300, std::numeric_limits<double>::infinity()})
            EXPECT_EQ(live.extents(0, {.first = 0, .width = width, .count = 2}), (std::vector<Extent>{{0, 99999}, {}}));
    }
}

/// Replaces an attribute, or a list if the attribute has no name, by one of another type or shape.
void replace(const std::string& file, const std::string& object, const char* attribute, hid_t type,
             const std::vector<hsize_t>& shape)
{
    const Hdf5File opened(H5Fopen(file.c_str(), H5F_ACC_RDWR, H5P_DEFAULT));
    const Hdf5Space space(H5Screate_simple(static_cast<int>(shape.size()), shape.data(), nullptr));
    if (*attribute) {
        H5Adelete_by_name(opened.id(), object.c_str(), attribute, H5P_DEFAULT);
        const Hdf5Attribute made(H5Acreate_by_name(opened.id(), object.c_str(), attribute, type, space.id(),
                                                   H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
        ASSERT_GE(made.id(), 0);
    } else {
        H5Ldelete(opened.id(), object.c_str(), H5P_DEFAULT);
        const Hdf5Dataset made(
            H5Dcreate2(opened.id(), object.c_str(), type, space.id(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
        ASSERT_GE(made.id(), 0);
    }
}

TEST(SignalsTest, AFileOfAnotherShapeIsRefused)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    const std::string group = "instrument-0";
    const std::string channel = group + "/channel-0-0";
    const Hdf5Type text = textType(16);
    const Hdf5Type anyText = textType();
    const struct {
        std::string object;
        const char* attribute;
        hid_t type;
        std::vector<hsize_t> shape;
    } cases[]{{"/", "state", text.id(), {1000}},       {"/", "title", anyText.id(), {1000}},
              {"/", "plan", text.id(), {0}},           {"/", "setup", H5T_NATIVE_INT, {1}},
              {group, "period", H5T_NATIVE_INT, {99}}, {group, "period", text.id(), {1}},
              {group, "lost", H5T_NATIVE_INT, {9, 9}}, {channel, "unit", H5T_NATIVE_DOUBLE, {1}},
              {channel, "", H5T_NATIVE_FLOAT, {9, 9}}, {channel, "clipped", anyText.id(), {1}},
              {"markers/time", "", text.id(), {9}},    {"markers/time", "", H5T_NATIVE_DOUBLE, {9, 9}}};
    for (const auto& c : cases) {
        std::filesystem::remove(file);
        recorded(instrumentsOf(instrument("", "", R"(, "range": [0, 1])")), into(file));
        replace(file, "markers/text", "", textType(Marker::textSize).id(), {9});
        EXPECT_NO_THROW((heldIn(file), signalsIn(file)));
        replace(file, c.object, c.attribute, c.type, c.shape);
        EXPECT_THROW((heldIn(file), signalsIn(file)), InputError) << c.object << " " << c.attribute;
    }
    recorded(instrumentsOf(instrument("")), into(file));
    replace(file, group, "period", H5T_NATIVE_DOUBLE, {1});
    EXPECT_TRUE(signalsIn(file)->channels().empty()) << "a period of 0 has no times";
}

TEST(SignalsTest, AFileThatAnotherProgramWritesIsShownAsItIsWhenItIsOpenedAgain)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    int pipe[2]{};
    ASSERT_EQ(::pipe(pipe), 0);
    const pid_t child = fork();
    if (child == 0) {
        const Instruments instruments{std::make_shared<Scripted>(counter(300), [&](BlockSink& sink) {
            char go = 0;
            sink.deliver(numbers(0, 100));
            if (read(pipe[0], &go, 1) == 1)
                sink.deliver(numbers(100, 200));
            sink.ended(300, "");
        })};
        RecordingOptions options = into(file);
        options.flushInterval = std::chrono::milliseconds(1);
        _exit(recorded(instruments, options).failures.empty() ? 0 : 1);
    }
    while (!std::filesystem::exists(file) || heldIn(file).instruments[0].samples < 100)
        ASSERT_EQ(waitpid(child, nullptr, WNOHANG), 0);
    const auto shown = signalsIn(file);
    EXPECT_EQ(shown->state().channels[0].samples, 100);
    EXPECT_EQ(write(pipe[1], "", 1), 1);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(heldIn(file).state, "complete");
    EXPECT_EQ(heldIn(file).instruments[0].samples, 300);
    const auto again = signalsIn(file);
    EXPECT_EQ(again->state().channels[0].samples, 300);
    while (again->isGrowing()) {
    }
    EXPECT_EQ(again->extents(0, {.first = 0, .width = 300, .count = 1}), (std::vector<Extent>{{0, 299}}));
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
        const std::int64_t measured = running->chart()->state().channels[0].samples;
        while (running->progress().instruments[0].samples < measured) {
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
    RecordingOptions options = into(file);
    options.flushInterval = std::chrono::hours(1);
    RecordingRun run(instruments, armed(instruments), options);
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
    try {
        signalsIn(folder.file("none.h5"));
        ADD_FAILURE();
    } catch (const InputError& error) {
        EXPECT_NE(std::string(error.what()).find("No such file"), std::string::npos) << error.what();
    }
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
