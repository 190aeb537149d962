#include "host/scenario/PlayedScenario.h"

namespace ko::test {
namespace {

const char* const bench = R"({"clock": "2026-11-21 09:30:00", "drivers": [
  {"name": "Digitizer", "groups": [{"name": "g", "channels": [{"address": "1:1"}]}],
   "timebase": {"samplePeriod": {"value": 0.001}}},
  {"name": "Scanner", "measurementMode": 2, "groups": [{"name": "g", "channels": [{"address": "2:1"}]}],
   "timebase": {}}]})";

TEST(ScheduleScenarioTest, ARecordingIsPlannedInTheDialog)
{
    const Played run = play(R"(setup
show
click optStartTime
click optStopTime
cursor 100 100
dialog SetDateTime
state optCurrentDay calDate dtpTimeSelector
text calDate 2026-11-25
click optSpecifiedDay
text calDate 2026-11-24
text calDate 2026-02-30
text dtpTimeSelector 15:04:05
expect calDate text 2026-11-24
expect dtpTimeSelector text 15:04:05
click btnOK
click btnOK
end
double-click txtStartTime
expect txtStartTime text "11/24/2026 3:04:05 PM"
expect txtStopTime text "11/24/2026 3:04:15 PM"
click cmdStopTime
expect lblNumSamplesValue caption 10240
expect lblNumDynamicBytesValue caption "40.41 KB"
expect lblNumScansValue caption 101
expect lblNumStaticBytesValue caption "1.03 KB"
expect lblDurationValue caption "10.24 seconds"
expect lblStopTimeValue caption "11/24/2026 3:04:15 PM"
expect lblPlan caption "Starts at 11/24/2026 3:04:05 PM, records until 11/24/2026 3:04:15 PM, that is 10 s, 10,240 samples, 40.41 KB dynamic and 1.03 KB static, ends at about 11/24/2026 3:04:15 PM."
drivers
)",
                            bench);
    EXPECT_EQ(run.fault, "");
    EXPECT_TRUE(run.expectationsMet) << run.only({"expectation"});
    EXPECT_EQ(run.only({"dialog", "inert", "report", "message"}),
              R"({"line":18,"event":"dialog","form":"SetDateTime","action":"opened","left":1500,"top":1500}
{"line":8,"event":"inert","control":"calDate"}
{"line":11,"event":"inert","control":"calDate"}
{"line":15,"event":"dialog","form":"SetDateTime","action":"closed","left":1500,"top":1500}
{"line":16,"event":"inert","control":"btnOK"}
{"line":21,"event":"dialog","form":"SetDateTime","action":"opened","left":1500,"top":1500}
{"line":21,"event":"dialog","form":"SetDateTime","action":"closed","left":1500,"top":1500,"unanswered":true}
)");
    const Json drivers = run.last("drivers")["drivers"];
    ASSERT_EQ(drivers.size(), 2U);
    for (const Json& driver : drivers) {
        EXPECT_EQ(driver["timebase"]["startMode"], 1);
        EXPECT_EQ(driver["timebase"]["stopMode"], 1);
        EXPECT_EQ(driver["timebase"]["duration"], 10);
        EXPECT_NEAR(driver["timebase"]["startTime"].get<double>(), 46350 + 54245 / 86400.0, 1e-9);
    }
}

TEST(ScheduleScenarioTest, ADateOrTimeOfAnotherShapeCannotBeUnderstood)
{
    for (const char* const words : {"calDate 24.11.2026", "calDate 2026-11", "calDate 2026-11-24-1",
                                    "dtpTimeSelector 15-04-05", "dtpTimeSelector 15:04", "dtpTimeSelector -1:0:0"}) {
        const Played run = play(std::string("setup\nshow\nclick optStartTime\ndialog SetDateTime\ntext ") + words +
                                    "\nend\nclick cmdStartTime\n",
                                bench);
        EXPECT_EQ(run.fault.rfind("5: \"", 0), 0U) << words << ": " << run.fault;
    }
}

/// Plays a script through every part of the schedule, once for each call that can fail.
TEST(ScheduleScenarioTest, WhateverCallFailsThePageEndsUpShowingWhatAllDriversHold)
{
    for (int call = 1; call < 160; ++call) {
        const Played run = play("setup\nshow\nfail Digitizer #" + std::to_string(call) + R"(
text txtDuration 20
choose cmbInterval minutes
click optStartTime
click optStopTime
dialog SetDateTime
text dtpTimeSelector 11:00:00
click btnOK
end
click cmdStopTime
click optImmediate
heal Digitizer
click optStartTime
click optStopTime
click optImmediate
text txtDuration 31
state
drivers
)",
                                bench);
        EXPECT_EQ(run.fault, "") << call;
        const Json drivers = run.last("drivers")["drivers"];
        const Json controls = run.events[run.events.size() - 2]["controls"];
        ASSERT_EQ(drivers.size(), 2U);
        for (const Json& driver : drivers) {
            const Json& timebase = driver["timebase"];
            EXPECT_TRUE(controls["optImmediate"]["value"].get<bool>() && timebase["startMode"] == 0) << call;
            EXPECT_TRUE(controls["optAfter"]["value"].get<bool>() && timebase["stopMode"] == 0) << call;
            EXPECT_EQ(timebase["duration"], controls["cmbInterval"]["text"] == "minutes" ? 31 * 60 : 31) << call;
        }
    }
}

} // namespace
} // namespace ko::test
