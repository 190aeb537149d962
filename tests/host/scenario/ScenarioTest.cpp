#include "fakes/Folder.h"
#include "host/scenario/PlayedScenario.h"

#include <set>

namespace ko {
namespace {

using test::Played;

const char* const scriptedBench = R"({"title": "Bench", "clock": "2026-11-21 09:30:00", "drivers": [
  {"name": "Digitizer", "groups": [{"name": "g", "channels": [{"address": "1:1"}]}],
   "timebase": {"samplePeriod": {"value": 0.001, "choices": [0.001, 0.002]}}},
  {"name": "Scanner", "measurementMode": 2, "timebase": {}}]})";

Played playScripted(const std::string& script, const std::string& setup = scriptedBench, const std::string& folder = {})
{
    return test::play(script, setup, folder);
}

TEST(ScenarioTest, HostCommandsReachThePageAndTheirAnswersAreEvents)
{
    const Played run = playScripted(R"(site help status
setup
processed
show
processed
can 57670
command 57670
key F1
key Ctrl+Shift+F1
ok-to-leave
print-mode 3
print-mode
print "Lab Plotter" copies=2 color=2 duplex=3 orientation=2 paper=1 quality=-1
print Nowhere
clipboard "a \"b\""
clipboard
)");
    EXPECT_EQ(run.fault, "");
    EXPECT_EQ(run.only({"processed", "enabled", "help", "ok-to-leave", "print-mode", "print", "clipboard", "report"}),
              R"({"line":3,"event":"processed","value":false}
{"line":5,"event":"processed","value":true}
{"line":6,"event":"enabled","command":57670,"value":1}
{"line":7,"event":"help","topic":1007}
{"line":8,"event":"help","topic":1007}
{"line":10,"event":"ok-to-leave","value":true}
{"line":12,"event":"print-mode","value":3,"description":"Timebase Editor"}
{"line":13,"event":"print","printer":"Lab Plotter","copies":2,"color":2,"duplex":3,"orientation":2,"paper":1,"quality":-1}
{"line":14,"event":"print","printer":"Lab Plotter","copies":1,"color":1,"duplex":1,"orientation":1,"paper":9,"quality":-4}
{"line":16,"event":"clipboard","value":"a \"b\""}
)");
}

TEST(ScenarioTest, ReadsAreLoggedOnRequestAndNeitherReadsNorWritesWhileQuiet)
{
    const Played run =
        playScripted("setup\nshow\nread-only on\nquiet on\nread-only off\nreads on\nread-only on\nquiet off\n"
                     "read-only off\nreads off\nread-only on\n");
    const auto linesOf = [&](const char* name) {
        std::set<int> lines;
        for (const Json& event : run.events)
            if (event["event"] == name)
                lines.insert(event["line"].get<int>());
        return lines;
    };
    EXPECT_EQ(linesOf("read"), (std::set<int>{9}));
    EXPECT_NE(run.only({"read"}).find(R"("operation":"DriverName","arguments":[0],"value":"Digitizer")"),
              std::string::npos);
    EXPECT_EQ(linesOf("write"), (std::set<int>{2, 3, 9, 11}));
}

TEST(ScenarioTest, AFailingDriverIsReportedUntilItIsHealed)
{
    const Played run =
        playScripted("setup\nfail 1 MeasurementMode 77 \"no mode\"\nfail Digitizer SamplingMode\nhand-over\n"
                     "heal Scanner MeasurementMode\nheal 0\nhand-over\nfail 0 #2\nhand-over\nhand-over\n");
    EXPECT_EQ(
        run.only({"report"}),
        R"({"line":4,"event":"report","number":-2147467259,"source":"KoTimebaseEditor:IKopDrivers_Drivers","description":"simulated failure"}
{"line":4,"event":"report","number":-2147467259,"source":"KoTimebaseEditor:IKopDrivers_Drivers","description":"simulated failure"}
{"line":4,"event":"report","number":77,"source":"KoTimebaseEditor:IKopDrivers_Drivers","description":"no mode"}
{"line":4,"event":"report","number":77,"source":"KoTimebaseEditor:IKopDrivers_Drivers","description":"no mode"}
{"line":9,"event":"report","number":-2147467259,"source":"KoTimebaseEditor:IKopDrivers_Drivers","description":"simulated failure"}
)");
}

TEST(ScenarioTest, StateShowsControlsByNameAndThePageBesides)
{
    const Json whole = playScripted("setup\nshow\nstate\n").last("state");
    const Json& rate = whole["controls"]["cmbSampleRate"];
    EXPECT_EQ(rate["type"], "ComboBox");
    EXPECT_EQ(rate["items"], (Json{"1000", "500"}));
    EXPECT_EQ(rate["index"], 0);
    EXPECT_EQ(rate["text"], "1000");
    EXPECT_EQ(whole["controls"]["grdParam"]["rows"], Json::array());
    EXPECT_EQ(whole["controls"]["optImmediate"]["value"], true);
    EXPECT_EQ(whole["activeControl"], "optImmediate");
    EXPECT_EQ(whole["lines"]["availableSync"].size(), 8U);
    for (const char* const field :
         {"editFlags", "readOnly", "isShown", "isLoading", "dynamicDriver", "staticDriver", "trigger"})
        EXPECT_TRUE(whole.contains(field)) << field;

    const Json some = playScripted("state txtDuration frmStop\n").last("state");
    EXPECT_EQ(some.size(), 3U);
    EXPECT_EQ(some["controls"].size(), 2U);
    for (const char* const property : {"type", "enabled", "visible", "tag", "text", "locked", "selStart", "selLength"})
        EXPECT_TRUE(some["controls"]["txtDuration"].contains(property)) << property;
}

TEST(ScenarioTest, TheDriversEventLoadsAsTheSameSetup)
{
    const Json drivers = playScripted("fail 0 #4\ndrivers\n").last("drivers")["drivers"];
    const std::string again = Json{{"drivers", drivers}}.dump();
    EXPECT_EQ(playScripted("drivers\n", again).last("drivers")["drivers"], drivers);
    EXPECT_EQ(drivers[0]["failing"], Json{"#4"});
}

TEST(ScenarioTest, InputGoesThroughTheControlsUserMembers)
{
    const Played run = playScripted(R"(setup
show
focus txtDuration
text txtDuration 25
select txtDuration 0 1
type 34
expect txtDuration text 345
expect txtDuration selStart 2
leave
type 9
select txtDuration 7 2
choose cmbInterval minutes
expect cmbInterval index 1
choose cmbInterval #0
choose cmbInterval #4
choose cmbInterval centuries
focus lblDuration
click mnuTimebaseTriggerLines
text txtStopTime x
double-click txtSampleRate
hide
click optImmediate
type x
)");
    EXPECT_EQ(run.fault, "");
    EXPECT_TRUE(run.expectationsMet);
    EXPECT_EQ(run.only({"inert", "expectation"}), R"({"line":10,"event":"inert","control":null}
{"line":15,"event":"inert","control":"cmbInterval"}
{"line":16,"event":"inert","control":"cmbInterval"}
{"line":17,"event":"inert","control":"lblDuration"}
{"line":18,"event":"inert","control":"mnuTimebaseTriggerLines"}
{"line":19,"event":"inert","control":"txtStopTime"}
{"line":20,"event":"inert","control":"txtSampleRate"}
{"line":22,"event":"inert","control":"optImmediate"}
{"line":23,"event":"inert","control":null}
)");
}

TEST(ScenarioTest, AnExpectationThatFailsIsAnEventAndTheRestStillRuns)
{
    const Played run = playScripted("expect frmStart visible false\nexpect frmStart visible true\nclipboard\n");
    EXPECT_FALSE(run.expectationsMet);
    EXPECT_EQ(
        run.only({"expectation", "clipboard"}),
        R"({"line":1,"event":"expectation","control":"frmStart","property":"visible","expected":"false","actual":"true"}
{"line":3,"event":"clipboard","value":""}
)");
}

// Invalid lines and their messages.
constexpr std::pair<const char*, const char*> notUnderstood[]{
    {"dance", "unknown command \"dance\""},
    {"type \"a", "a quoted word does not end"},
    {"announce 1.5", "\"1.5\" is no whole number"},
    {"hand-over -1", "fewer than no drivers cannot be handed over"},
    {"read-only maybe", "\"maybe\" is neither on nor off"},
    {"site phone", "a site offers help and status, not \"phone\""},
    {"click cmdNowhere", "there is no control \"cmdNowhere\""},
    {"click txtDuration", "the control \"txtDuration\" cannot be clicked"},
    {"choose txtDuration 5", "the control \"txtDuration\" cannot be chosen from"},
    {"text cmbInterval 5", "the control \"cmbInterval\" cannot be written in"},
    {"expect txtDuration caption x", "\"txtDuration\" has no property \"caption\""},
    {"key F13", "\"F13\" is no key such as F1, Shift+F1 or Escape"},
    {"key Return", "\"Return\" is no key such as F1, Shift+F1 or Escape"},
    {"print P copies", "\"copies\" is no print setting such as copies=2"},
    {"print P size=2", "there is no print setting \"size\""},
    {"clock noon", "\"noon\" is no date and time such as \"2026-11-21 09:30:00\""},
    {"fail 7 GroupCount", "there is no driver \"7\""},
    {"fail 0 SamplePeriod", "\"SamplePeriod\" is no operation that can fail"},
    {"dialog About\nend", "there is no form \"About\""},
    {"dialog SetDateTime\nleave", "the dialog block has no end"},
    {"end", "end without dialog or during"},
    {"setup nowhere.json", "nowhere.json: cannot be opened: No such file or directory"},
};

TEST(ScenarioTest, EachCommandTakesAsManyWordsAsItsDescriptionSays)
{
    constexpr int any = 9;
    const struct {
        int least, most;
        const char* commands;
    } cases[]{
        {0, 0,
         "end-cell drop-cell drivers-changed show hide ok-to-leave processed terminate document drivers "
         "failing history leave"},
        {0, 1, "undo redo setup hand-over print-mode clipboard"},
        {0, 2, "site"},
        {0, any, "state"},
        {1, 1,
         "open-cell instruments announce read-only can command clock quiet reads offers record focus type key click "
         "double-click"},
        {1, 2, "heal"},
        {1, 7, "print"},
        {1, any, "pick locale"},
        {2, 2, "cell activate cursor expect-failing choose set-all"},
        {2, 4, "fail text"},
        {3, 3, "expect select"},
        {4, 4, "work-area enable expect-cell"},
    };
    for (const auto& it : cases) {
        std::istringstream names(it.commands);
        for (std::string name; names >> name;)
            for (int words = 0; words < any; ++words) {
                std::string line = name;
                for (int i = 0; i < words; ++i)
                    line += " /"; // which is no file
                const std::string fault = playScripted(line + "\n").fault;
                EXPECT_EQ(fault.starts_with("1: too few words"), words < it.least) << line;
                EXPECT_EQ(fault.starts_with("1: too many words"), words > it.most) << line;
            }
    }
}

TEST(ScenarioTest, AScriptStopsAtTheLineThatCannotBeUnderstood)
{
    for (const auto& [line, what] : notUnderstood) {
        const Played run = playScripted(std::string("clipboard\n") + line + "\nclipboard\n");
        EXPECT_EQ(run.fault, std::string("2: ") + what) << line;
        EXPECT_EQ(run.events.size(), 1U) << line;
    }
    EXPECT_EQ(playScripted("dialog SetDateTime\nkey F1\nsetup\nend\n").fault,
              "3: the command \"setup\" has no place in a dialog block");
    for (const char* const command : {"show", "state", "focus txtDuration", "setup", "terminate", "leave", "key F1"})
        EXPECT_EQ(playScripted(std::string("terminate\n") + command).fault, "2: there is no document") << command;
}

TEST(ScenarioTest, AnotherSetupFileIsReadAnewFromTheScriptsFolder)
{
    const test::Folder folder;
    folder.file("other.json", R"({"title": "Other", "drivers": [{"name": "Only"}]})");
    const Played run = playScripted("setup other.json\nsite status help\ndrivers\nfail Only GroupCount\n",
                                    scriptedBench, folder.path.string());
    EXPECT_EQ(run.fault, "");
    EXPECT_EQ(run.last("drivers")["drivers"].size(), 1U);
}

} // namespace
} // namespace ko
