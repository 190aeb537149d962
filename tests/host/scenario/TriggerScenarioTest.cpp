#include "host/scenario/PlayedScenario.h"

namespace ko {
namespace {

const char* const triggeredBench = R"({"drivers": [
  {"name": "Digitizer", "timebase": {"startMode": 2}, "triggerLines": {"startMasterRank": 5},
   "groups": [{"name": "Inputs", "channels": [
     {"address": "0:3:1", "name": "Crank", "triggerSource": true, "triggerParameters": [
       {"id": 2, "name": "Level", "type": "Float", "min": -10, "max": 10, "value": 0.5},
       {"id": 4, "name": "Slope", "type": "Enum", "choices": ["Rising", "Falling"], "value": "Rising"},
       {"id": 8, "name": "Calibrated", "type": "StringReadOnly", "value": "2026"}]},
     {"address": "0:3:2", "name": "Cam"},
     {"address": "0:3:3", "name": "Spare", "canTrigger": false}]}]},
  {"name": "Scanner", "measurementMode": 2, "timebase": {}, "triggerLines": {"scanMasterRank": 5}}]})";

/// Returns the output of a script without that of showing the page.
std::string played(const std::string& script)
{
    std::ostringstream output;
    std::istringstream input("quiet on\nsetup\nshow\nquiet off\n" + script);
    Scenario scenario({parseSetup(triggeredBench, "bench.json"), {}, {}, {}}, output);
    EXPECT_TRUE(scenario.run(input)) << output.str();
    return output.str();
}

TEST(TriggerScenarioTest, CellsAreEditedRefusedAndCorrected)
{
    EXPECT_EQ(
        played(R"(cell 1 99
expect grdParam editor "{\"row\":1,\"text\":\"99\"}"
cell 1 2.5
cell 2 Sideways
cell 3 x
cell 9 x
cell 2 Falling
)"),
        R"({"line":5,"event":"message","text":"A valid real number in the range -10 to 10 is required.","title":"Invalid input","style":48}
{"line":7,"event":"write","driver":0,"operation":"SetTriggerParamValue","arguments":[0,0,2],"value":2.5}
{"line":7,"event":"changed"}
{"line":8,"event":"inert","control":"grdParam"}
{"line":9,"event":"inert","control":"grdParam"}
{"line":10,"event":"inert","control":"grdParam"}
{"line":11,"event":"write","driver":0,"operation":"SetTriggerParamValue","arguments":[0,0,4],"value":"Falling"}
{"line":11,"event":"changed"}
)");
}

TEST(TriggerScenarioTest, TheDialogsAreAnsweredByTheirBlocks)
{
    EXPECT_EQ(played(R"-(dialog SelectChannel
pick none
click cmdOK
end
dialog SelectChannel
pick 0 2
activate 0 1
end
click cmdChannel
expect txtChannel text Cam
expect grdParam rows []
dialog AdvancedTrig
choose tabTrigger "Sync Trigger Line"
click optScanTrig(0)
click optScanTrig(3)
expect tabTrigger index 1
expect optStartTrig(3) enabled false
click btnOK
end
click mnuTimebaseTriggerLines
)-"),
              R"-({"line":13,"event":"dialog","form":"SelectChannel","action":"opened","left":0,"top":0}
{"line":7,"event":"dialog","form":"SelectChannel","action":"closed","left":0,"top":0}
{"line":13,"event":"message","text":"If you want to start recording on a trigger, you must select a trigger device or channel.","title":"Error","style":64}
{"line":13,"event":"dialog","form":"SelectChannel","action":"opened","left":0,"top":0}
{"line":10,"event":"inert","control":"chsNavigate"}
{"line":11,"event":"dialog","form":"SelectChannel","action":"closed","left":0,"top":0}
{"line":13,"event":"write","driver":0,"operation":"TriggerEnabled","arguments":[0,0],"value":false}
{"line":13,"event":"write","driver":0,"operation":"TriggerEnabled","arguments":[0,1],"value":true}
{"line":13,"event":"changed"}
{"line":24,"event":"dialog","form":"AdvancedTrig","action":"opened","left":0,"top":0}
{"line":18,"event":"inert","control":"optScanTrig(0)"}
{"line":22,"event":"dialog","form":"AdvancedTrig","action":"closed","left":0,"top":0}
{"line":24,"event":"write","driver":1,"operation":"ScanTriggerLine","value":3}
{"line":24,"event":"write","driver":0,"operation":"ScanTriggerInput","value":3}
{"line":24,"event":"changed"}
)-");
}

TEST(TriggerScenarioTest, ACellThatDiffersOrDoesNotExistIsReported)
{
    const auto opened = [](const std::string& question) {
        return test::play("quiet on\nsetup\nshow\ndialog AdvancedTrig\n" + question +
                              "\nend\nclick mnuTimebaseTriggerLines\n",
                          triggeredBench);
    };
    const test::Played other = opened("expect-cell tblStartMap Digitizer \"Line 0\" listens");
    EXPECT_FALSE(other.expectationsMet);
    EXPECT_EQ(
        other.only({"expectation"}),
        R"({"line":5,"event":"expectation","control":"tblStartMap","row":"Digitizer","column":"Line 0","expected":"listens","actual":"drives"})"
        "\n");
    for (const char* wrong : {"tblStartMap Nobody #0 x", "tblStartMap #2 #0 x", "tblStartMap #0 #8 x",
                              "tblStartMap #-1 #0 x", "tabTrigger #0 #0 x"})
        EXPECT_FALSE(opened(std::string("expect-cell ") + wrong).fault.empty()) << wrong;
    for (const char* right : {"tblStartMap Digitizer \"Line 0\" drives", "tblStartMap #1 #0 listens"})
        EXPECT_TRUE(opened(std::string("expect-cell ") + right).expectationsMet) << right;
    const auto has = [](const test::Played& run, const char* text) {
        return run.only({"state"}).find(text) != std::string::npos;
    };
    EXPECT_TRUE(has(opened("state tabTrigger"), R"("items":["Start Trigger Line","Sync Trigger Line"],)"
                                                R"("enabledItems":[true,true],"index":0})"))
        << opened("state tabTrigger").only({"state"});
    EXPECT_TRUE(has(opened("state tblStartMap"), R"("columns":["Line 0","Line 1",)"));
    const test::Played state = opened("state tblStartMap");
    EXPECT_NE(state.only({"state"}).find(R"("rows":[{"name":"Digitizer","cells":["drives","taken",)"),
              std::string::npos);
}

} // namespace
} // namespace ko
