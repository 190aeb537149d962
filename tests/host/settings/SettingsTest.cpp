#include "SettingsPage.h"
#include "host/settings/SettingsList.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace ko::test {
namespace {

TEST(Settings, TakeWhatThePageTakesAndReadBackWhatTheInstrumentsHold)
{
    std::string many;
    for (const char name : std::string_view("ABCDEFG"))
        many += std::string(many.empty() ? R"({"drivers": [)" : ", ") + R"({"name": ")" + name +
                R"(", "timebase": {"samplePeriod": {"value": 0.001, "choices": [0.001, 0.002]}}})";
    many += "]}";
    const struct {
        const char *setup, *assignments, *expected, *told = "";
    } cases[]{
        {"demo", "sample-rate=5000", "sample-period=0.0002;span=1953.125;txtSampleRate=5000",
         "sample-rate: differs in VIB-2200 Dynamic Signal Analyzer (10000), CNT-60 Torque and Speed (10000)\n"},
        {ranges, "txtSamplePeriod=2e-3;block-size=512", "sample-rate=500;block-size=512"},
        {many.c_str(), "sample-rate=500", "sample-rate=500",
         "sample-rate: differs in B (1000), C (1000), D (1000), E (1000), F (1000), and 1 more\n"},
        {"demo", "scan-period=2", "scan-rate=0.5;scans=16"},
        {ranges, "sample-rate=3", "sample-rate=3;sample-period=0.3333333333333333"},
        {ranges, "block-size=17;scan-rate=49", "block-size=17;scan-rate=49"},
        {ranges, "duration=90 s", "duration=90;actual-duration=90.1 seconds"},
        {ranges, "duration=5min", "duration=300;actual-duration=5 minutes"},
        {ranges, "duration=2 d;duration=1.5 h;duration=45", "duration=45"},
        {ranges, "start=time;start-time=2026-12-01 08:00:00;stop=time;stop-time=2026-12-01T08:01:00",
         "start-time=2026-12-01T08:00:00;stop-time=2026-12-01T08:01:00;duration=60"},
        {ranges, "start=time;start-time=23:59:30", "start=time;start-time=23:59:30"},
        {"demo", "start=trigger;trigger-channel=Camshaft", "trigger-channel=Camshaft"},
        {"demo", "start=trigger;trigger-channel=1:0", "trigger-channel=0:3:9"},
        {ranges, "start=trigger;trigger-channel=0:3:1", "trigger-channel=0:3:1"},
        {"demo",
         "start=trigger;trigger-channel=Crank;trigger.Level (V)=-0.25;trigger.Slope=Either;trigger.Noise "
         "Reject=true;trigger.Remark=a \"b\" \\ c",
         "trigger.Level (V)=-0.25;trigger.Slope=Either;trigger.Noise Reject=True;trigger.Remark=a \"b\" \\ c"},
        {"demo", "start-line=3;sync-line=4", "start-line=3;sync-line=4"},
    };
    for (const auto& it : cases) {
        SettingsPage bench(it.setup);
        EXPECT_EQ(bench.set(assignmentsIn(it.assignments)), it.told) << it.assignments;
        for (const std::string& one : assignmentsIn(it.expected)) {
            const std::string name = one.substr(0, one.find('='));
            EXPECT_EQ(name + "=" + bench.get(name), one) << it.assignments;
        }
    }
}

TEST(Settings, AreRefusedWithThePagesOwnMessageOrWithWhatIsMissing)
{
    const char* const cases[][3]{
        {"demo", "sample-rate=5001", "sample-rate: \"5001\" is not offered; choose one of 10000, 5000, 2000, 1000"},
        {ranges, "sample-rate=0.01", "sample-rate: A valid real number in the range 0.1 to 10000 is required."},
        {"demo", "duration=0,5 h", "duration: \"0,5 h\" is not a duration; write 90 s"},
        {"demo", "duration=90 d", "duration: Total required disk space for dynamic measurements can never exceed"},
        {ranges, "duration=5 weeks", "duration: \"5 weeks\" is not a duration; write 90 s"},
        {ranges, "start=now", "start: \"now\" is not offered; choose one of immediately, trigger, time"},
        {ranges, "stop=time", "stop: time needs start=time (add --set start=time before it)"},
        {ranges, "start-time=08:00:00", "start-time: needs start=time (add --set start=time before it)"},
        {ranges, "stop-time=08:00:00",
         "stop-time: needs start=time and stop=time (add --set start=time --set stop=time "},
        {ranges, "trigger-channel=A", "trigger-channel: needs start=trigger (add --set start=trigger before it)"},
        {ranges, "start=time;start-time=soon", "start-time: \"soon\" is not a time; write 2026"},
        {ranges, "start=time;start-time=9999-12-31T23:59:59;stop=time",
         "stop: KoTimebaseEditor:optStopTime_Click: The date is outside of the years 100 to 9999"},
        {ranges, "start=time;stop=time;start-time=9999-12-31T23:59:59",
         "start-time: KoTimebaseEditor:txtStartTime_Change: The date is outside of the years 100 to 9999"},
        {ranges, "start=time;start-time=1899-12-30T09:30:00", "start-time: \"1899-12-30T09:30:00\" is too early"},
        {ranges, "start=time;start-time=2026-12-01 08:00:00;stop=time;stop-time=2026-11-30 08:00:00",
         "stop-time: Stop time must be later than start time."},
        {ranges, "start=time;start-time=2026-12-01 08:00:00;stop=time;stop-time=09:00:00",
         "stop-time: not available: the page does not take \"09:00:00\" now"},
        {ranges, "trigger.Level=1", "trigger.Level: not available:"},
        {ranges, "start=trigger;trigger-channel=C", "trigger-channel: \"C\" is not offered; choose one of A, 0:3:1"},
        {"demo", "start=trigger;trigger-channel=Crank;trigger.Level (V)=11",
         "trigger.Level (V): A valid real number in the range -10 to 10 is required."},
        {"demo", "start=trigger;trigger-channel=Crank;trigger.Slope=Up", "trigger.Slope: \"Up\" is not offered"},
        {"demo", "start=trigger;trigger-channel=Crank;trigger.Calibrated=x", "trigger.Calibrated: can only be"},
        {"demo", "start-line=2", "start-line: \"2\" is not offered; choose one of 0, 1, 3"},
        {ranges, "start-line=2", "start-line: not available:"},
        {"demo", "samples=5", "samples: can only be read"},
    };
    for (const auto& [setup, assignments, wanted] : cases) {
        const std::string refusal = SettingsPage(setup).set(assignmentsIn(assignments));
        EXPECT_NE(refusal.find("refused: " + std::string(wanted)), std::string::npos) << refusal;
    }
}

TEST(Settings, ThatTheInstrumentsRoundAreNotedAndFailingOnesRefuse)
{
    const char* const cases[][3]{
        {R"("samplePeriod": { "value": 0.001, "keeps": "nothing" } } )", "sample-period=0.0011",
         "sample-period: asked 0.0011, the instruments keep 0.001\n"},
        {R"("samplePeriod": { "value": 0.001 } } )", "duration=0.123456789012",
         "duration: asked 0.123456789012, the instruments keep 0.12345679\n"},
        {R"("samplePeriod": { "value": 0.001 } }, "failing": ["SamplePeriod set"] )", "sample-period=0.002",
         "refused: sample-period: "},
        {R"("samplePeriod": { "value": 0.001 } }, "failing": ["SamplePeriod get"] )", "sample-period=0.002",
         "refused: sample-period: "},
    };
    for (const auto& [drivers, assignment, wanted] : cases) {
        SettingsPage bench(R"({ "drivers": [ { "name": "A", "timebase": { )" + std::string(drivers) + "} ] }");
        const std::string told = bench.set({assignment});
        EXPECT_EQ(told.rfind(wanted, 0), 0U) << told;
    }
}

TEST(Settings, AWarningOfThePageIsReturnedAndTheValueAccepted)
{
    SettingsPage bench(R"({ "drivers": [ { "name": "A", "timebase": {}, "triggerLines": {}, "groups": [ { "name": "G",
                     "channels": [ { "address": "0:1", "triggerSource": true, "enabled": 0 } ] } ] } ] })");
    const std::string warning = "The currently selected trigger channel is disabled. Either choose another channel or "
                                "enable the channel using the channel editor.\n";
    EXPECT_EQ(bench.set({"start=trigger", "trigger-channel=0:1", "start=immediately", "start=trigger"}),
              warning + warning)
        << "each time triggering is switched on";
    EXPECT_EQ(bench.get("start"), "trigger");
}

TEST(Settings, BringEveryNumberBackThatTheyPrint)
{
    for (const double period : {0.1, 0.1 + 0.2, 1.0 / 3.0, 1.0 / 49.0, 2.0 / 3.0 * 1e-3, 7.000000000000001}) {
        SettingsPage first(ranges);
        EXPECT_EQ(first.set({"sample-period=" + exactText(period)}), "");
        EXPECT_EQ(numberIn(first.get("sample-period")), period);
        SettingsPage second(ranges);
        EXPECT_EQ(second.set({"sample-rate=" + first.get("sample-rate")}), "");
        EXPECT_NEAR(*numberIn(second.get("sample-period")), period, period * 1e-15);
        EXPECT_EQ(second.set({"sample-rate=" + second.get("sample-rate")}), "");
        EXPECT_EQ(second.get("sample-rate"), first.get("sample-rate"));
    }
}

TEST(Settings, UnknownNamesAreAnsweredWithNamesLikeThem)
{
    const std::pair<const char*, const char*> cases[] = {
        {"sample-rat", "did you mean sample-rate?"},
        {"line", "did you mean start-line or sync-line?"},
        {"xyzzy-plugh", "there are sample-rate, sample-period, block-size"},
        {"", "there are sample-rate"},
    };
    const SettingsPage bench("demo");
    for (const auto& [name, answer] : cases)
        EXPECT_NE(bench.get(name).find(answer), std::string::npos) << bench.get(name);
}

TEST(Settings, WithoutAFiniteValueHaveNone)
{
    for (const char* const period : {"0", "-0.0", "1e-310"})
        for (const std::string shape :
             {R"({ "value": @ })", R"({ "value": @, "choices": [@, 1] })", R"({ "value": @, "range": [@, 1] })"}) {
            std::string quantity = shape;
            for (auto at = quantity.find('@'); at != std::string::npos; at = quantity.find('@'))
                quantity.replace(at, 1, period);
            const SettingsPage bench(R"({ "drivers": [ { "name": "A", "timebase": { "samplePeriod": )" + quantity +
                                     " } } ] }");
            const Settings settings = settingsOf(bench.played());
            const std::string list =
                settingsTable(settings, bench.played()) + settingsJson(settings, bench.played()).dump();
            for (const char* const text : {"inf", "INF", "nan", "NAN"})
                EXPECT_EQ(list.find(text), std::string::npos) << list;
            EXPECT_EQ(bench.get("sample-rate"), "sample-rate: not available: it has no value now");
        }
}

} // namespace
} // namespace ko::test
