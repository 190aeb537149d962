#include "host/scenario/PlayedScenario.h"
#include "host/setup/SetupFile.h"

#include <random>

namespace ko {
namespace {

using test::play;
using test::Played;

std::string demo()
{
    return readFile(KO_DEMO_FOLDER "/engine-bench-demo.json");
}

const std::string begin = "quiet on\nclock \"2026-11-21 09:30:00\"\nsetup\nshow\n";

/// The texts of all steps after a script.
std::vector<std::string> stepsOf(const std::string& script)
{
    return play(begin + script + "\nhistory", demo(), {}).last("history")["steps"];
}

TEST(HistoryTest, AStepIsOneEditAndIsNamedByWhatItChanged)
{
    const std::pair<const char*, const char*> edits[] = {
        {"focus txtDuration\ntype 2\ntype 5\nleave", "Duration 30 s → 25 s"},
        {"focus txtDuration\ntype 2\ntype 30\nleave", "Duration 30 s → 230 s"},
        {"choose cmbSampleRate #1", "Sample rate 10000 → 5000"},
        {"choose cmbSamplePeriod #1", "Sample rate 10000 → 5000"},
        {"choose cmbBlockSize #0", "Block size 1024 → 512"},
        {"choose cmbScanRate #1", "Scan rate 2 → 1"},
        {"click optStartTime", "Start Immediately → At time, Start time 12:00:00 AM → 9:30:00 AM"},
        {"dialog SetDateTime\ntext dtpTimeSelector 15:04:05\nclick btnOK\nend\nclick optStartTime\nclick cmdStartTime",
         "Start time 9:30:00 AM → 3:04:05 PM"},
        {"click optOnTrigger\ncell 1 1.5", "Level (V) 2.5 → 1.5"},
        {"click optOnTrigger\ndialog SelectChannel\npick 0 1\nclick cmdOK\nend\nclick cmdChannel",
         "Trigger channel Crank → Camshaft"},
        {"dialog AdvancedTrig\nclick optStartTrig(3)\nclick btnOK\nend\nclick mnuTimebaseTriggerLines",
         "Start trigger line 1 → 4"},
        {"enable 0 0 1 0", "Camshaft Yes → No"},
    };
    for (const auto& [script, step] : edits) {
        const auto steps = stepsOf(script);
        EXPECT_EQ(steps.empty() ? "" : steps.back(), step) << script;
    }
    EXPECT_EQ(stepsOf("set-all sample-rate 5000\nset-all block-size 512"),
              (std::vector<std::string>{"Sample rate 10000 → 5000", "Block size 1024 → 512"}));
    EXPECT_EQ(stepsOf("dialog ShowOffers\ntext txtValue 5000\nclick cmdSetAll\ntext txtValue 2000\nclick cmdSetAll\n"
                      "click btnClose\nend\nclick cmdSampleRateOffers"),
              (std::vector<std::string>{"Sample rate 10000 → 5000", "Sample rate 5000 → 2000"}))
        << "each is a step of its own";
    EXPECT_EQ(stepsOf("text txtDuration 25\nclick optOnTrigger").size(), 2U) << "leaving the box ends its step";
    EXPECT_EQ(stepsOf("focus txtDuration\ntype 2\nkey Escape\nleave\ntext txtDuration x\nleave"),
              std::vector<std::string>())
        << "nothing has changed";
    EXPECT_EQ(stepsOf("focus txtDuration\ntype 25\ntype 6\nkey F1"), std::vector<std::string>()) << "still being typed";
}

TEST(HistoryTest, AnotherEditDropsWhatCouldBeRedone)
{
    const Played run = play(
        begin + "undo\nchoose cmbSampleRate #1\nchoose cmbSampleRate #2\nundo\nchoose cmbBlockSize #0\nredo\nhistory",
        demo());
    EXPECT_EQ(run.only({"inert", "undone", "redone", "history"}),
              R"({"line":5,"event":"inert","control":null}
{"line":8,"event":"undone","step":"Sample rate 5000 → 2000"}
{"line":10,"event":"inert","control":null}
{"line":11,"event":"history","steps":["Sample rate 10000 → 5000","Block size 1024 → 512"],"position":2}
)");
}

TEST(HistoryTest, WhatAnInstrumentRefusesStaysWithOneMessageAndTheHistoryWhereItWas)
{
    const std::string edits = "choose cmbSampleRate #1\nfocus txtDuration\ntype 25\nleave\nchoose cmbSampleRate #2\n";
    for (const char* fails : {"fail 0 \"SamplePeriod set\"", "fail 1 \"Duration set\"", "fail 0 \"Duration set\""}) {
        const Played run =
            play(begin + edits + fails + "\nundo 3\nundo\nundo\nheal 0\nheal 1\nhistory\nundo 2", demo());
        const bool failsAtOnce = std::string(fails).find("Sample") != std::string::npos;
        int messages = 0;
        for (const Json& event : run.events)
            messages += event["event"] == "message";
        const char* position = failsAtOnce ? R"("position":3})" : R"("position":2})";
        EXPECT_NE(run.only({"history"}).find(position), std::string::npos) << fails;
        EXPECT_EQ(messages, failsAtOnce ? 3 : 2) << fails << ", also in three steps at once";
        EXPECT_NE(run.only({"undone"}).find("Duration"), std::string::npos) << "healed, all steps are taken";
    }
}

TEST(HistoryTest, AReadOnlyPageAndAnOpenDialogUndoNothing)
{
    const Played run = play(begin + "choose cmbSampleRate #1\nread-only on\nundo\nread-only off\nundo", demo());
    EXPECT_EQ(run.only({"inert", "undone"}), R"({"line":7,"event":"inert","control":null}
{"line":9,"event":"undone","step":"Sample rate 10000 → 5000"}
)");
}

/// Edits of every kind, any of them, in any order.
std::string anyEdits(unsigned seed, int count)
{
    // %N is a number below N.
    std::istringstream all(
        "choose cmbSampleRate #%6;choose cmbBlockSize #%4;choose cmbScanRate #%5;choose cmbScanPeriod #%5;"
        "text txtDuration %100;choose cmbInterval #%3;click optImmediate;click optOnTrigger;click optStartTime;"
        "click optStopTime;click optAfter;cell 1 %10;enable 0 0 %4 %2;key Escape;undo;redo;show;"
        "dialog SelectChannel\npick 0 %3\nclick cmdOK\nend\nclick cmdChannel;"
        "dialog SetDateTime\ntext dtpTimeSelector 15:04:%60\nclick btnOK\nend\nclick cmdStartTime;"
        "dialog AdvancedTrig\nclick optStartTrig(%8)\nclick optScanTrig(%8)\nclick btnOK\nend\n"
        "click mnuTimebaseTriggerLines");
    std::vector<std::string> edits;
    for (std::string edit; std::getline(all, edit, ';');)
        edits.push_back(edit);
    std::minstd_rand random(seed);
    std::string script;
    for (int i = 0; i < count; ++i) {
        std::string edit = edits[random() % edits.size()];
        for (std::size_t at = 0, length = 0; (at = edit.find('%')) != std::string::npos;) {
            const int limit = std::stoi(edit.substr(at + 1), &length);
            edit.replace(at, length + 1, std::to_string(random() % static_cast<unsigned>(limit)));
        }
        script += edit + "\n";
    }
    // The last edits leave nothing to be redone.
    return script + "leave\nenable 0 0 3 1\nenable 0 0 3 0\n";
}

/// Instruments that keep different values, so that a page that is shown again would write to them.
const std::string rounding = R"({"drivers": [
  {"name": "A", "timebase": {"samplePeriod": {"value": 0.001, "range": [1e-6, 1]}}, "triggerLines": {"startMasterRank": 5,
    "startLinesAsMaster": [0, 1]}, "groups": [{"name": "G", "channels": [{"address": "0:1"}, {"address": "0:2"}, {"address": "0:3"}, {"address": "0:4"}]}]},
  {"name": "B", "samplingMode": 2, "timebase": {"scanPeriod": {"value": 0.2, "choices": [0.2, 0.4, 0.9]}},
    "triggerLines": {"scanMasterRank": 5, "scanLinesAsMaster": [2]}},
  {"name": "C", "samplingMode": 2, "timebase": {"scanPeriod": {"value": 0.1, "choices": [0.1, 1.0]}}}]})";

TEST(HistoryTest, UndoingWritesNothingOverWhatItHasRestored)
{
    const std::string look = "leave\ndrivers\nstate cmdScanRateDiffers lblPlan\n";
    const Played run =
        play(begin + "text txtScanPeriod 0.45\n" + look + "text txtDuration 25\nleave\nundo\n" + look, rounding);
    std::vector<Json> held;
    for (const Json& event : run.events)
        for (const char* seen : {"drivers", "controls"})
            if (event.contains(seen))
                held.push_back(event[seen]);
    ASSERT_EQ(held.size(), 4U);
    EXPECT_TRUE(held[2] == held[0] && held[3] == held[1]) << run.only({"state"});
    EXPECT_EQ(held[0][1]["timebase"]["scanPeriod"]["value"], 0.4);
    const Played failing = play(begin + "fail 1 \"Duration set\"\ntext txtDuration 25\nleave\nheal 1\n"
                                        "text txtSampleRate 500\nleave\nundo\ndrivers",
                                rounding);
    EXPECT_EQ(failing.last("drivers")["drivers"][1]["timebase"]["duration"], 10.0) << "as before the undone step";
}

TEST(HistoryTest, TheDocumentMayEndInsideAStep)
{
    for (const char* ends : {"terminate", "setup", "undo", "hide"}) {
        const Played run =
            play(begin + "text txtSampleRate 500\nleave\ntext txtSampleRate 250\nleave\n" +
                     "during 0 \"SamplePeriod set\"\n" + ends + "\nend\nundo\nclock \"2026-11-21 09:30:00\"",
                 rounding);
        EXPECT_EQ(run.fault, "") << ends;
    }
}

/// All instruments hold at each position what they held there before, however it is reached.
TEST(HistoryTest, UndoingEverythingBringsBackTheStartAndRedoingEverythingTheEnd)
{
    for (unsigned seed = 1; seed <= 15; ++seed) {
        const int count = 60;
        std::string script = begin + "drivers\n" + anyEdits(seed, count) + "drivers\n";
        for (int i = 0; i < count; ++i)
            script += "undo\n";
        script += "drivers\n";
        for (int i = 0; i < count; ++i)
            script += "redo\n";
        const Played run = play(script + "drivers\n", seed % 3 == 0 ? rounding : demo());
        EXPECT_EQ(run.fault, "");
        std::vector<std::string> held;
        for (const Json& event : run.events)
            if (event["event"] == "drivers")
                held.push_back(event["drivers"].dump());
        ASSERT_EQ(held.size(), 4U);
        EXPECT_EQ(held[2], held[0]) << "seed " << seed;
        EXPECT_EQ(held[3], held[1]) << "seed " << seed;
    }
}

} // namespace
} // namespace ko
