#include "Recorded.h"
#include "fakes/Thrown.h"

#include "host/recording/Moments.h"
#include "host/recording/RecordingTexts.h"

#include <cstdlib>
#include <ctime>

namespace ko {
namespace {

using namespace test;

TEST(RecordingPlanTest, SamplesAreRaisedToWholeBlocksAndScansAreTheDrivers)
{
    const char* const scans = R"(, "measurementMode": 2)";
    const std::pair<std::string, std::int64_t> cases[]{
        {instrument(R"("samplePeriod": {"value": 0.5}, "blockSize": {"value": 8})"), 24},
        {instrument(R"("samplePeriod": {"value": 0.5}, "blockSize": {"value": 4})"), 20},
        {instrument(R"("samplePeriod": {"value": 0.1}, "blockSize": {"value": 1}, "duration": 0.3)"), 3},
        {instrument(R"("samplePeriod": {"value": 0.001}, "blockSize": {"value": 100}, "duration": 0.1)"), 100},
        {instrument(R"("samplePeriod": {"value": 0.001}, "blockSize": {"value": 65536}, "duration": 0)"), 65536},
        {instrument(R"("scanPeriod": {"value": 0.3})", scans), 34},
        {instrument(R"("duration": 0)", scans), 1},
        {instrument(R"("scanPeriod": {"value": 0.3})", R"(, "samplingMode": 2, "numberOfScans": 7)"), 7},
        {instrument("", R"(, "samplingMode": 2, "numberOfScans": -7)"), 0},
    };
    for (const auto& [described, samples] : cases) {
        const RecordingPlan plan = armed(instrumentsOf(described));
        ASSERT_EQ(plan.instruments.size(), 1U);
        EXPECT_EQ(plan.instruments[0].samples, samples) << described;
        EXPECT_EQ(plan.bytes(), 4.0 * static_cast<double>(samples));
    }
}

TEST(RecordingTextsTest, BytesHaveTheUnitThatReadsBest)
{
    for (const auto& [bytes, text] : {std::pair(1023.0, "1023 bytes"),
                                      {1024.0, "1.0 KB"},
                                      {1.5e9, "1.4 GB"},
                                      {1e15, "909.5 TB"},
                                      {2e15, "1819.0 TB"}})
        EXPECT_EQ(byteText(bytes), text);
}

TEST(RecordingPlanTest, WhatCannotBeRecordedIsRefusedWithTheReason)
{
    const std::string timebase = R"("startMode": 2)", lines = R"(, "triggerLines": {"startMasterRank": 3})";
    const std::pair<std::string, std::string> cases[]{
        {"", "no instrument has a timebase and an enabled channel"},
        {instrument("", "", R"(, "enabled": 0)"), "no instrument has a timebase and an enabled channel"},
        {instrument(R"("samplePeriod": {"value": 0})"), "d: Division by zero"},
        {instrument(R"("samplePeriod": {"value": 1e-9}, "duration": 100)"), "d: Overflow"},
        {instrument("", R"(, "samplingMode": 2, "failing": ["NumberOfScans"])"), "d: simulated failure"},
        {instrument("", R"(, "dynamicBytes": 2147483648)"), "text 1170"},
        {instrument("", R"(, "samplingMode": 2, "numberOfScans": 600000000)"), "text 1172"},
        {instrument(timebase), "the recording starts on trigger, but no instrument can send the start trigger"},
        {instrument(timebase, R"(, "triggerLines": {"startMasterRank": 0, "startTriggerLine": 2})"),
         "the recording starts on trigger, but no instrument can send the start trigger"},
        {instrument(timebase, lines), "d: the recording starts on trigger, but no channel is the trigger source"},
    };
    for (const auto& it : cases)
        EXPECT_EQ(thrownBy<RecordingRefusal>([&] { armed(instrumentsOf(it.first)); }), it.second) << it.first;
    const auto instruments = instrumentsOf(instrument(R"("samplePeriod": {"value": 0})") + "," + instrument(""));
    EXPECT_THROW(armed(instruments), RecordingRefusal);
    // None of them is still armed.
    EXPECT_NO_THROW(instruments[1]->acquisition()->arm());
}

TEST(RecordingPlanTest, AStartTimeIsTheNextOneOnTheClock)
{
    setenv("TZ", "Europe/Berlin", 1);
    tzset();
    const auto at = [](const char* text) { return *readClockTime(text); };
    const auto next = [&](DateTime time, const char* now) {
        const auto moment = nextMoment(time, momentOf(at(now)));
        return moment ? isoText(*moment) : "past";
    };
    const DateTime nine{9.0 / 24.0};
    EXPECT_EQ(next(nine, "2026-11-21 08:59:59"), "2026-11-21T09:00:00.000000+01:00");
    EXPECT_EQ(next(nine, "2026-11-21 09:00:00"), "2026-11-21T09:00:00.000000+01:00");
    EXPECT_EQ(next(nine, "2026-11-21 09:00:01"), "2026-11-22T09:00:00.000000+01:00");
    EXPECT_EQ(next(nine, "2026-10-24 10:00:00"), "2026-10-25T09:00:00.000000+01:00"); // the end of summer time
    EXPECT_EQ(next(at("2026-07-01 12:00:00"), "2026-06-30 00:00:00"), "2026-07-01T12:00:00.000000+02:00");
    EXPECT_EQ(next(at("2026-07-01 12:00:00"), "2026-07-01 12:00:00"), "2026-07-01T12:00:00.000000+02:00");
    EXPECT_EQ(next(at("2026-07-01 12:00:00"), "2026-07-01 12:00:01"), "past");
    // The clock shows half past two twice, and once not at all.
    const DateTime dated = at("2026-10-25 02:30:00");
    const Moment first = momentOf(dated);
    EXPECT_EQ(isoText(first), "2026-10-25T02:30:00.000000+02:00");
    for (const DateTime time : {dated, DateTime{2.5 / 24.0}})
        EXPECT_EQ(isoText(*nextMoment(time, later(first, 600.0))), "2026-10-25T02:30:00.000000+01:00");
    EXPECT_EQ(next({2.5 / 24.0}, "2026-03-29 01:00:00"), "2026-03-29T03:30:00.000000+02:00");
    EXPECT_EQ(isoText(later(first, 1e300)), "9999-12-31T01:00:00.000000+01:00");
    EXPECT_EQ(isoText(later(momentOf(at("1969-12-31 23:59:59")), 0.25)), "1969-12-31T23:59:59.250000+01:00");
    EXPECT_EQ(isoText(later(momentOf(at("2026-11-21 09:30:00")), -1e-6)).size(), isoTextSize);
    unsetenv("TZ");
    tzset();
}

} // namespace
} // namespace ko
