#include "FrameTest.h"
#include "RandomUser.h"
#include "host/scenario/ControlState.h"
#include "host/scenario/Scenario.h"
#include "host/setup/SetupChanges.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <sstream>

namespace ko::test {
namespace {

const std::string demoSetup = KO_DEMO_FOLDER "/engine-bench-demo.json";

const char* const capturedBench = R"({"drivers": [
  {"name": "Digitizer", "timebase": {"startMode": 2, "samplePeriod": {"value": 0.001, "choices": [0.001, 0.002, 0.01]},
      "blockSize": {"value": 1024, "range": [16, 65536]}},
   "triggerLines": {"startMasterRank": 5, "startLinesAsMaster": [0, 1, 2], "scanMasterRank": 3},
   "groups": [{"name": "Inputs", "channels": [
     {"address": "0:3:1", "name": "Crank", "triggerSource": true, "triggerParameters": [
       {"id": 2, "name": "Level", "type": "Float", "min": -10, "max": 10, "value": 0.5},
       {"id": 4, "name": "Slope", "type": "Enum", "choices": ["Rising", "Falling"], "value": "Rising"},
       {"id": 5, "name": "Noise", "type": "Bool", "value": false},
       {"id": 6, "name": "Remark", "type": "String", "value": "wheel"}]},
     {"address": "0:3:2", "name": "Cam", "triggerParameters": [
       {"id": 2, "name": "Count", "type": "Integer", "min": 0, "max": 9, "value": 3}]}]}]},
  {"name": "Scanner", "samplingMode": 2, "timebase": {"startMode": 2, "scanPeriod": {"value": 0.1, "range": [0.01, 10]}},
   "triggerLines": {"scanMasterRank": 5}, "groups": [{"name": "Slow", "channels": [{"address": "1:1"}]}]}]})";

/// A session that is captured in the host's window and then replayed, without a window and in another one.
class CaptureTest : public FrameTest {
protected:
    void SetUp() override
    {
        file("bench.json", capturedBench);
        // No recordings: one that is still in progress is not replayed as such.
        window.files().setQuestions(std::make_unique<RecordsTo>(window));
        show();
    }
    [[nodiscard]] std::string captured(const char* name = "session.scenario") const
    {
        return readFile(folder.file(name));
    }

    static std::string driversOf(const Page& shown)
    {
        std::string all;
        for (const auto& driver : shown.drivers)
            all += toJson(dynamic_cast<HostInstrument&>(*driver).settings()).dump() + "\n";
        return all;
    }
    /// First updates what follows the clock, as the page does each minute.
    static std::string controlsOf(const Page& shown)
    {
        raise(shown.minutePassed);
        std::string all = pageState(shown).dump() + "\n";
        all += shown.activeControl() ? shown.activeControl()->name() : "no focus";
        for (const Control* control : shown.controls())
            all += "\n" + control->name() + " " + controlState(*control).dump();
        return all;
    }
    /// Stops the capture, replays it from this set-up and compares the results.
    void expectSameReplay(const std::string& setup, const char* name = "session.scenario")
    {
        // The time of the last input, as in the replays: the system's clock would run on to another minute.
        const DateTime last = window.services().clock.now();
        window.services().clock.standAt(last);
        window.capture().stop();
        std::ostringstream output;
        std::ifstream script(folder.file(name));
        Scenario replay({loadSetup(setup), folder.path.string(), {}, {}}, output);
        try {
            replay.run(script);
        } catch (const ScriptFault& fault) {
            FAIL() << "line " << fault.line() << ": " << fault.what() << "\n" << captured(name);
        }
        replay.clock.time = last;
        const Page& replayed = replay.document().page();
        EXPECT_EQ(driversOf(replayed), driversOf(page())) << captured(name);
        EXPECT_EQ(controlsOf(replayed), controlsOf(page())) << captured(name);
        expectSameInWindow(setup, folder.file(name), last);
    }
    void expectSameInWindow(const std::string& setup, const std::string& file, DateTime last)
    {
        FrameWindow other("");
        other.open(setup);
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        other.replay().setPace(0);
        const ReplayResult result = other.replay().play(file);
        EXPECT_TRUE(result.isWhole) << result.lastLine << ": " << result.fault << "\n" << readFile(file);
        other.services().clock.standAt(last);
        EXPECT_EQ(driversOf(other.document().page()), driversOf(page())) << readFile(file);
        EXPECT_EQ(controlsOf(other.document().page()), controlsOf(page())) << readFile(file);
    }
};

TEST_F(CaptureTest, EditsOfTheInstrumentsAreReplayedWithTheirUndo)
{
    window.open(folder.file("bench.json"));
    window.capture().startFromHere(folder.file("session.scenario"));
    FrameInstruments& list = window.instrumentList();
    EXPECT_TRUE(list.edit([](ko::Setup& setup) { addInstrument(setup, "counter"); }));
    EXPECT_TRUE(list.edit([](ko::Setup& setup) { setup.instruments[0].name = "Fast"; }));
    EXPECT_TRUE(list.edit([](ko::Setup& setup) { setup.instruments.erase(setup.instruments.begin() + 1); }));
    window.history().undo();
    EXPECT_EQ(driver().name(), "Fast");
    EXPECT_EQ(page().drivers.size(), 3U);
    // What ends an entry in its middle makes two steps of it.
    for (const std::function<void()>& end :
         {std::function([this] { window.history().redo(); }), window.session().saved}) {
        const std::size_t before = window.history().steps().position();
        QWidget& box = at(page().txtDuration);
        QTest::mouseClick(&box, Qt::LeftButton);
        QTest::keyClicks(&box, "4");
        end();
        QTest::keyClicks(&box, "5");
        QTest::mouseClick(&at(page().optAfter), Qt::LeftButton);
        ASSERT_EQ(window.history().steps().position(), before + 2);
        for (int step = 0; step < 2; ++step)
            window.history().undo();
    }
    expectSameReplay(folder.file("bench.json"));
}

/// Returns the number of sessions, or of actions of each: an environment variable, or the default.
int wanted(const char* variable, int usual)
{
    const char* value = std::getenv(variable);
    return value ? std::atoi(value) : usual;
}

class RandomSession : public CaptureTest, public testing::WithParamInterface<int> {
protected:
    RandomUser hand{window, static_cast<unsigned>(GetParam()) + 1};

    /// Performs an action of the user, and sometimes one of the host.
    void act()
    {
        switch (hand.draw.upTo(40)) {
        case 0: hand.have([this] { window.page().menu().actions().constFirst()->trigger(); }); break;
        case 1: hand.have([this] { window.files().open(toQt(folder.file("bench.json"))); }); break;
        case 2: breakDown(); break;
        case 4: hand.have([this] { window.history().undo(); }); break;
        case 5: hand.have([this] { window.history().redo(); }); break;
        case 6: window.session().saved(); break;
        case 3:
            hand.have([this] { window.instruments().model().enable(driver(), 0, 0, hand.draw.upTo(2) == 1); });
            break;
        default: hand.act();
        }
    }
    void breakDown()
    {
        constexpr const char* operations[]{"SamplePeriod set", "Duration get", "StartMode set", "SetTriggerParamValue"};
        const std::string operation = operations[hand.draw.upTo(4)];
        CallGate& calls = driver().calls();
        const bool fails = calls.failing().empty();
        fails ? static_cast<void>(calls.fail({.operation = operation})) : calls.healAll();
        window.instruments().faultChanged(driver(), fails ? operation : "", fails);
    }
};

TEST_P(RandomSession, ReplaysToTheSameDriversAndTheSamePage)
{
    const std::string setup = GetParam() % 2 == 0 ? folder.file("bench.json") : demoSetup;
    window.capture().start(folder.file("session.scenario"), setup);
    window.open(setup);
    for (int i = wanted("KO_SESSION_ACTIONS", 150); i > 0; --i)
        act();
    hand.act();
    expectSameReplay(setup);
}

TEST_P(RandomSession, BeginsAnywhereWithASetupOfItsOwn)
{
    window.open(folder.file("bench.json"));
    for (int i = wanted("KO_SESSION_ACTIONS", 150) / 3; i > 0; --i)
        act();
    hand.have([this] { window.capture().startFromHere(folder.file("session.scenario")); });
    for (int i = wanted("KO_SESSION_ACTIONS", 150) / 3; i > 0; --i)
        act();
    expectSameReplay(demoSetup);
}

TEST_F(CaptureTest, AFileThatIsRemovedEndsTheCaptureWithAMessageAndThePageGoesOn)
{
    window.capture().start(folder.file("session.scenario"), {});
    window.open(folder.file("bench.json"));
    QAction& entry = window.capture().action();
    EXPECT_TRUE(entry.isChecked());
    std::filesystem::remove(folder.file("session.scenario"));
    RandomUser hand(window, 1);
    hand.have([&] { QTest::mouseClick(&at(page().optAfter), Qt::LeftButton); });
    hand.have([&] { QTest::mouseClick(&at(page().txtDuration), Qt::LeftButton); });
    EXPECT_EQ(page().activeControl(), &page().txtDuration);
    EXPECT_EQ(hand.lastMessage(), window.text(3203));
    EXPECT_FALSE(entry.isChecked());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomSession, testing::Range(0, wanted("KO_SESSIONS", 6)));

} // namespace
} // namespace ko::test
