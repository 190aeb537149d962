#include "host/scenario/ScenarioCapture.h"

#include "fakes/Folder.h"
#include "host/scenario/PlayedScenario.h"
#include "host/setup/SetupFile.h"
#include "platform/DateTimes.h"

#include <rapidcheck/gtest.h>

namespace ko::test {
namespace {

using Words = std::vector<std::string>;

const char* const capturedBench = R"({"clock": "2026-11-21 09:30:00", "drivers": [
  {"name": "Digitizer", "timebase": {"startMode": 2}, "groups": [{"name": "Inputs", "channels": [
     {"address": "0:3:1", "name": "Crank", "triggerSource": true, "triggerParameters": [
       {"id": 2, "name": "Level", "type": "Float", "min": -10, "max": 10, "value": 0.5}]}]}]}]})";

TEST(ScenarioWriterTest, TheFileCanBePlayedAfterEachStep)
{
    std::string file;
    ScenarioWriter writer([&](const std::string& text, std::size_t at) {
        EXPECT_LE(at, file.size());
        EXPECT_LE(file.size(), at + text.size());
        file = file.substr(0, at) + text;
    });
    const auto expect = [&](const std::string& content) {
        EXPECT_EQ(file, content);
        EXPECT_EQ(play(file, capturedBench).fault, "") << file;
    };
    writer.comment("top");
    writer.line({"setup"});
    writer.line({"show"});
    const std::string top = "# top\nsetup\nshow\n";
    writer.line({"click", "cmdChannel"});
    expect(top + "click cmdChannel\n");
    writer.dialogOpened("SelectChannel");
    expect(top + "dialog SelectChannel\nend\nclick cmdChannel\n");
    writer.line({"pick", "0", "0"});
    writer.line({"click", "cmdOK"});
    const std::string first = "dialog SelectChannel\n    pick 0 0\n    click cmdOK\nend\n";
    expect(top + first + "click cmdChannel\n");
    EXPECT_EQ(writer.dialog(), "SelectChannel");
    writer.dialogClosed();
    writer.dialogOpened("AdvancedTrig");
    writer.dialogClosed();
    EXPECT_EQ(writer.dialog(), "");
    expect(top + first + "dialog AdvancedTrig\nend\nclick cmdChannel\n");
    writer.line({"leave"});
    expect(top + first + "dialog AdvancedTrig\nend\nclick cmdChannel\nleave\n");
}

RC_GTEST_PROP(ScenarioWriterTest, WordsComeBackAsTheyWereWritten, (Words words, const std::string& awkward))
{
    words.insert(words.begin(), "type");
    words.push_back("\" \\\n#" + awkward);
    const std::string line = joinWords(words);
    RC_ASSERT(line.find('\n') == std::string::npos);
    RC_ASSERT(splitWords(line, 1) == words);
}

/// A page whose use is captured.
class ScenarioCaptureTest : public testing::Test {
protected:
    std::ostringstream output;
    Scenario live{{parseSetup(capturedBench, "bench.json"), {}, {}, {}}, output};
    const Folder folder;
    const std::string file = folder.file("captured.scenario");
    Locale locale;
    int seconds = 0;

    void use(const std::string& commands)
    {
        std::istringstream script(commands);
        live.run(script);
    }
    [[nodiscard]] Captured captured()
    {
        const auto tick = [this] {
            live.clock.time = DateTime{dateSerial(2026, 11, 21).days + timeSerial(10, 0, seconds).days};
            return *live.clock.time;
        };
        return {live.document().page(), {}, tick, locale};
    }
    [[nodiscard]] std::string lines() const
    {
        const std::string all = readFile(file);
        return all.substr(all.find("\nshow\n") + 6);
    }
};

TEST_F(ScenarioCaptureTest, NumbersAndTimesOfTheUsersLocaleReplayAnywhere)
{
    locale.decimalSeparator = ",";
    locale.timeFormat = "HH:mm:ss";
    locale.timeIs24Hour = "1";
    live.stage().setLocale(locale);
    {
        ScenarioCapture capture(file, captured());
        capture.setup();
        use("setup\nshow\nfocus txtDuration\nselect txtDuration 0 2\ntype 2,5\n");
        seconds = 7;
        use("click optAfter\nclick optStartTime\n");
    }
    EXPECT_EQ(live.drivers()[0]->settings().timebase->duration, 2.5F);
    const Played replayed = play(readFile(file) + "drivers\nstate txtDuration txtStartTime\n", capturedBench);
    EXPECT_EQ(replayed.fault, "");
    use("drivers\nstate txtDuration txtStartTime\n");
    const Json shown = replayed.last("state");
    EXPECT_EQ(shown["controls"]["txtDuration"]["text"], "2,5");
    EXPECT_EQ(shown["controls"]["txtStartTime"]["text"], "10:00:07");
    EXPECT_NE(output.str().find(shown["controls"].dump()), std::string::npos) << readFile(file);
    EXPECT_NE(output.str().find(replayed.events.at(replayed.events.size() - 2)["drivers"].dump()), std::string::npos);
}

TEST_F(ScenarioCaptureTest, EachInputIsInTheFileBeforeItTakesEffect)
{
    use("setup\nshow\n");
    ScenarioCapture capture(file, captured());
    std::string atClick;
    live.document().page().optAfter.click = [&] { atClick = lines(); };
    live.document().page().optStopTime.showSelected();
    use("click optAfter\n");
    EXPECT_EQ(atClick, "focus optAfter\nclick optAfter\n");
}

TEST_F(ScenarioCaptureTest, InputsReadAsAUserWouldWriteThem)
{
    use("setup\nshow\nfocus txtDuration\n");
    ScenarioCapture capture(file, captured());
    TextBox& box = live.document().page().txtDuration;
    box.userReplaced("5", 1, 0);
    box.userReplaced("57", 2, 0);
    box.userReplaced("157", 1, 0);
    box.userSelected(1, 0);
    box.userSelected(0, 1);
    box.userReplaced("a b", 3, 0);
    box.userUndid();
    use("key Shift+F1\nleave\nleave\nopen-cell 1\ntext grdParam 1.5 1 2\nend-cell\nopen-cell 1\ndrop-cell\ncell 1 "
        "99\n");
    EXPECT_EQ(lines(), "type 5\ntype 7\ntext txtDuration 157 1 0\nselect txtDuration 0 1\ntext txtDuration \"a b\"\n"
                       "key Escape\nkey Shift+F1\nleave\nfocus grdParam\nopen-cell 1\ntext grdParam 1.5 1 2\n"
                       "end-cell\nopen-cell 1\ndrop-cell\ncell 1 99\n");
}

TEST_F(ScenarioCaptureTest, SetupsAreNamedAsSeenFromTheScenariosFolder)
{
    ScenarioCapture capture(file, captured());
    capture.setup();
    capture.setup((folder.path / "sub" / ".." / "with blank.json").string());
    capture.setup((folder.path.parent_path() / "other.json").string());
    EXPECT_EQ(lines(), "hide\nsetup\nshow\nhide\nsetup \"with blank.json\"\nshow\nhide\nsetup ../other.json\nshow\n");
}

TEST(CapturedCommandsTest, ChannelsAndLocalesAreSetAndWhatIsWrongIsNamed)
{
    const Played set = play("enable Digitizer 0 0 0\nlocale decimalSeparator=, timeIs24Hour=1\nsetup\nshow\ndrivers\n"
                            "state txtDuration\n",
                            capturedBench);
    EXPECT_EQ(set.events.at(set.events.size() - 2)["drivers"][0]["groups"][0]["channels"][0]["enabled"], 0);
    const char* const noSelection = "a selection begins at 0 and has no length below 0";
    for (const auto& [line, what] :
         {std::pair{"enable 0 0 9 1", "there is no such channel"},
          std::pair{"enable 0 0 0 2", "a channel is enabled with 1 and disabled with 0"},
          std::pair{"locale a=b", "\"a=b\" is no setting such as decimalSeparator=,"},
          std::pair{"text txtDuration 5 1", "a selection has a start and a length"},
          std::pair{"select txtDuration -1 1", noSelection}, std::pair{"select txtDuration 1 -1", noSelection}})
        EXPECT_EQ(play(line, capturedBench).fault, std::string("1: ") + what);
}

} // namespace
} // namespace ko::test
