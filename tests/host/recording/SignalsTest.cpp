#include "Recorded.h"
#include "fakes/Thrown.h"
#include "host/recording/Hdf5.h"
#include "host/recording/HeldRecording.h"
#include "host/recording/LiveSignals.h"
#include "host/recording/RecordedSignals.h"
#include "host/support/InputError.h"

#include <future>
#include <sys/wait.h>

namespace ko::test {
namespace {

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
    const std::string reason = thrownBy<InputError>([&] { signalsIn(folder.file("none.h5")); });
    EXPECT_NE(reason.find("No such file"), std::string::npos) << reason;
}

} // namespace
} // namespace ko::test
