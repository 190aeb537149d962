#include "host/recording/Monitor.h"
#include "Recorded.h"

#include <future>

namespace ko::test {
namespace {

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
} // namespace ko::test
