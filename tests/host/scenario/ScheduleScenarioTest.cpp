#include "host/scenario/PlayedScenario.h"

namespace ko::test {
namespace {

const char* const scheduledBench = R"({"clock": "2026-11-21 09:30:00", "drivers": [
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
work-area 10 20 580 400
click cmdStopTime
dialog SetDateTime
end
click cmdStopTime
dialog SetDateTime
text dtpTimeSelector 16:00:00
key Escape
end
click cmdStopTime
expect lblPlan caption "Starts at 11/24/2026 3:04:05 PM, records until 11/24/2026 3:04:15 PM, that is 10 s, 10,240 samples, 40.41 KB dynamic and 1.03 KB static, ends at about 11/24/2026 3:04:15 PM."
drivers
)",
                            scheduledBench);
    EXPECT_EQ(run.fault, "");
    EXPECT_TRUE(run.expectationsMet) << run.only({"expectation"});
    EXPECT_EQ(run.only({"dialog", "inert", "report", "message"}),
              R"({"line":18,"event":"dialog","form":"SetDateTime","action":"opened","left":1500,"top":1500}
{"line":8,"event":"inert","control":"calDate"}
{"line":11,"event":"inert","control":"calDate"}
{"line":15,"event":"dialog","form":"SetDateTime","action":"closed","left":1500,"top":1500}
{"line":16,"event":"inert","control":"btnOK"}
{"line":22,"event":"dialog","form":"SetDateTime","action":"opened","left":900,"top":600}
{"line":22,"event":"dialog","form":"SetDateTime","action":"closed","left":900,"top":600,"unanswered":true}
{"line":25,"event":"dialog","form":"SetDateTime","action":"opened","left":900,"top":600}
{"line":24,"event":"dialog","form":"SetDateTime","action":"closed","left":900,"top":600,"unanswered":true}
{"line":30,"event":"dialog","form":"SetDateTime","action":"opened","left":900,"top":600}
{"line":28,"event":"dialog","form":"SetDateTime","action":"closed","left":900,"top":600}
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
                                scheduledBench);
        EXPECT_EQ(run.fault.rfind("5: \"", 0), 0U) << words << ": " << run.fault;
    }
}

} // namespace
} // namespace ko::test
