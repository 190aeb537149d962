#include "FrameTest.h"
#include "host/chart/ChartPanel.h"
#include "host/docks/DriverLog.h"
#include "host/docks/FailureStrip.h"
#include "host/recording/HeldRecording.h"
#include "host/recording/RecordedSignals.h"
#include "host/recording_view/RecordingView.h"

#include <QDir>
#include <QFileInfo>

namespace ko::test {
namespace {

/// `clock` lets the recording run as fast as possible.
std::string setupOf(const std::string& timebase, const std::string& clock = {}, const std::string& more = {})
{
    return R"({"title": "Bench 1/2", )" + clock +
           R"("drivers": [{"name": "A", "hasTriggerParameters": true, "timebase": {)" + timebase +
           R"("samplePeriod": {"value": 0.001, "range": [1e-6, 1]}}, )" + more +
           R"("groups": [{"name": "G", "channels": [{"address": "0:1", "name": "First", "triggerSource": true, "triggerParameters": [
               {"id": 1, "name": "Level", "type": "Float", "value": 5, "role": "level"}]},
             {"address": "0:2", "enabled": false}]}]}]})";
}

const std::string standing = R"("clock": "11/21/2026 9:30:00 AM", )";

class RecordingWindowTest : public FrameTest {
protected:
    FrameRecording& recording() { return window.recording(); }
    std::string state() { return fromQt(recording().view().stateText()); }
    const QTableWidget& summary() { return recording().view().summary(); }

    void open(const std::string& content)
    {
        FrameTest::open(content);
        show();
        user.record = folder.file("out.h5");
    }
    bool begins(const std::string& text)
    {
        return QTest::qWaitFor([&] { return state().starts_with(text); });
    }
    bool ends()
    {
        return QTest::qWaitFor([&] { return !recording().isActive(); });
    }
    std::string stateOfFile() { return heldIn(user.record).state; }
};

TEST_F(RecordingWindowTest, AKeyRecordsAndThePageIsReadOnlyMeanwhile)
{
    open(setupOf(R"("duration": 5, )", standing));
    DriverLogModel& log = window.driverLog().model();
    log.flush();
    const int calls = log.rowCount();
    press(Qt::Key_F9);
    EXPECT_TRUE(page().readOnly && page().lblReadOnly.visible());
    EXPECT_EQ(page().lblReadOnly.caption(), "Read-only while recording");
    ASSERT_TRUE(ends());
    EXPECT_EQ(user.offered.file, folder.file("Bench 1-2 2026-11-21 093000.h5"));
    EXPECT_FALSE(page().readOnly);
    EXPECT_EQ(state(), "The recording is complete.");
    ASSERT_EQ(summary().rowCount(), 1);
    EXPECT_EQ(summary().verticalHeaderItem(0)->text(), "A");
    EXPECT_EQ(summary().item(0, 0)->text(), summary().item(0, 1)->text());
    EXPECT_EQ(heldIn(user.record).instruments.at(0).samples, 5120);
    EXPECT_TRUE(recording().chart().chart().latestValues().contains("First")) << "however short it was";
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(window.history().steps().steps().empty());
    log.flush();
    EXPECT_EQ(log.rowCount(), 3 * calls) << "the page is built when its mode changes, and else not";
    page().moveFocus(&page().txtDuration);
    recording().chart().setFocus();
    press(Qt::Key_Delete);
    EXPECT_EQ(page().txtDuration.text(), "5") << "keys in the dock do nothing on the page";
}

TEST_F(RecordingWindowTest, WaitsForTimeAndTriggerAndIsStoppedByAKeyOrAQuestion)
{
    const struct {
        const char *start, *state;
    } cases[]{{R"("startMode": 1, "startTime": 400000.25, )", "Waiting for the start"},
              {R"("startMode": 2, )", "Waiting for the trigger"},
              {R"("duration": 1000, )", "Recording"}};
    for (const auto& it : cases) {
        SCOPED_TRACE(it.start);
        QFile::remove(toQt(user.record));
        open(setupOf(it.start, {}, R"("triggerLines": {"startMasterRank": 5}, )"));
        press(Qt::Key_F9);
        ASSERT_TRUE(begins(it.state)) << state() << user.told;
        user.stops = false;
        window.close();
        EXPECT_TRUE(window.isVisible() && recording().isActive()) << "the user wants to go on";
        EXPECT_FALSE(window.instruments().model().enable(*window.session().drivers()[0], 0, 1, true));
        press(Qt::Key_F9, Qt::ShiftModifier);
        ASSERT_TRUE(ends());
        EXPECT_EQ(stateOfFile(), "stopped");
        EXPECT_EQ(state(), "The recording was stopped early.");
    }
    press(Qt::Key_F9);
    ASSERT_TRUE(begins("Recording"));
    user.stops = true;
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(stateOfFile(), "stopped");
}

TEST_F(RecordingWindowTest, AnotherSetUpAndADestroyedWindowEndTheRecordingWithAWholeFile)
{
    const std::string endless = setupOf(R"("duration": 1000, )");
    open(endless);
    press(Qt::Key_F9);
    ASSERT_TRUE(begins("Recording"));
    window.files().open(toQt(file("other.json", R"({"drivers": []})")));
    EXPECT_EQ(window.session().drivers().size(), 1U);
    file("bench.json", R"({"drivers": [{"name": "Changed elsewhere"}]})");
    user.conflict = Conflict::Reload;
    window.files().save();
    EXPECT_EQ(window.session().drivers()[0]->name(), "A");
    EXPECT_EQ(user.askedToStop, 2);
    user.stops = true;
    window.files().open(toQt(file("other.json", R"({"drivers": []})")));
    EXPECT_TRUE(window.session().drivers().empty());
    EXPECT_EQ(stateOfFile(), "stopped");
    EXPECT_FALSE(page().readOnly);

    FrameWindow second("");
    second.files().setQuestions(std::make_unique<DecidedQuestions>(user));
    second.open(file("bench.json", endless.c_str()));
    user.record = folder.file("second.h5");
    second.recording().record();
    EXPECT_TRUE(second.recording().isActive());
}

TEST_F(RecordingWindowTest, ChartsTheChosenChannelsAndStoresMarkers)
{
    const std::string other = R"({"name": "B", "timebase": {}, "groups": [{"name": "G", "channels": [
        {"address": "1:1", "name": "Second"}]}]}, )";
    std::string bench = setupOf(R"("duration": 1000, )");
    open(bench.insert(bench.find('[') + 1, other));
    const StripChart& chart = recording().chart().chart();
    const auto shows = [&](const char* text) {
        return QTest::qWaitFor([&] { return chart.latestValues().contains(text); });
    };
    recording().monitor();
    EXPECT_TRUE(page().readOnly && page().lblReadOnly.caption().starts_with("Monitoring"));
    EXPECT_TRUE(shows("First"));
    window.instruments().select(0);
    EXPECT_TRUE(shows("Second"));
    EXPECT_FALSE(chart.latestValues().contains("First"));
    EXPECT_FALSE(QFile::exists(toQt(user.record)));
    press(Qt::Key_M);
    press(Qt::Key_F9, Qt::ShiftModifier);
    ASSERT_TRUE(ends());
    EXPECT_FALSE(page().readOnly);
    EXPECT_EQ(page().lblReadOnly.caption().substr(0, 10), "Read-only:");
    window.instruments().editing().edit(
        [](ko::Setup& setup) { std::swap(setup.instruments[0], setup.instruments[1]); });
    window.instruments().select(0);
    EXPECT_TRUE(shows("First") && !chart.latestValues().contains("Second")) << "what was A is now the first one";

    press(Qt::Key_F9);
    auto& text = *recording().chart().findChild<QLineEdit*>("markerText");
    ASSERT_TRUE(QTest::qWaitFor([&] { return text.isEnabled(); }));
    text.setText("knock");
    press(Qt::Key_M);
    EXPECT_EQ(text.text(), "");
    press(Qt::Key_M);
    ASSERT_TRUE(QTest::qWaitFor([&] { return state().starts_with("Recording, ") && state() > "Recording, 0.2"; }));
    recording().stop();
    ASSERT_TRUE(ends());
    EXPECT_FALSE(text.isEnabled());
    const auto markers = signalsIn(user.record)->state().markers;
    ASSERT_EQ(markers.size(), 2U);
    EXPECT_EQ(markers[0].text, "knock");
    EXPECT_GE(markers[1].time, markers[0].time);

    recording().monitor();
    window.files().open(toQt(user.record));
    EXPECT_EQ(user.askedToStop, 0) << "a monitor loses nothing";
    EXPECT_TRUE(shows("First"));
}

TEST_F(RecordingWindowTest, AnHourOfRecordingsLeavesHandlesAndThreadsWhereTheyWere)
{
    open(setupOf(R"("duration": 3600, )", standing));
    const auto count = [](const char* what) { return QDir(what).entryList(QDir::AllEntries | QDir::System).size(); };
    const auto round = [&] {
        press(Qt::Key_F9);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !recording().isActive(); }, 60000));
        QTest::qWait(50);
        return std::pair(count("/proc/self/fd"), count("/proc/self/task"));
    };
    const auto first = round();
    EXPECT_EQ(heldIn(user.record).instruments.at(0).samples, 3600384);
    EXPECT_EQ(round(), first);
}

TEST_F(RecordingWindowTest, AStartThatIsPastIsAskedAbout)
{
    open(setupOf(R"("startMode": 1, "startTime": 46346.333333333336, "duration": 1, )", standing));
    press(Qt::Key_F9);
    EXPECT_FALSE(recording().isActive());
    EXPECT_EQ(user.told, "11/20/2026 8:00:00 AM|11/22/2026 8:00:00 AM");
    const std::pair<PastStart, const char*> answers[] = {{PastStart::Now, "2026-11-21T09:30:00"},
                                                         {PastStart::Tomorrow, "2026-11-22T08:00:00"}};
    for (const auto& [answer, start] : answers) {
        user.pastStart = answer;
        press(Qt::Key_F9);
        ASSERT_TRUE(ends());
        EXPECT_EQ(heldIn(user.record).start.substr(0, 19), start);
        EXPECT_EQ(page().optStartTime.value(), true) << "the page keeps its setting";
    }
    for (const auto& [time, start] : {std::pair("0.5", "2026-11-21T12:00:00"), {"0.25", "2026-11-22T06:00:00"}}) {
        open(setupOf(R"("startMode": 1, "duration": 1, "startTime": )" + std::string(time) + ", ", standing));
        press(Qt::Key_F9);
        ASSERT_TRUE(ends());
        EXPECT_EQ(heldIn(user.record).start.substr(0, 19), start) << "the next one on the clock";
    }
    page().optStopTime.userClicked();
    page().txtStopTime.setText("11/21/2026 6:00:01 AM");
    press(Qt::Key_F9);
    EXPECT_EQ(user.told, "11/21/2026 6:00:00 AM|11/22/2026 6:00:00 AM") << "on the day of a stop with a date";
    EXPECT_TRUE(ends());
}

TEST_F(RecordingWindowTest, WhatFailsIsSaidAndThePageCanBeEditedAgain)
{
    open(setupOf(R"("startMode": 2, )", standing, R"("triggerLines": {"startMasterRank": 5}, )"));
    press(Qt::Key_F9);
    ASSERT_TRUE(ends());
    EXPECT_EQ(state(), "The recording has failed.");
    auto& strip = *window.findChild<FailureStrip*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return strip.isVisible(); }));
    EXPECT_TRUE(strip.findChild<QListWidget*>()->item(0)->text().startsWith("A: "));
    EXPECT_FALSE(page().readOnly);

    open(setupOf(R"("duration": 1, )", standing));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !strip.isVisible(); }));
    user.record = folder.file("no/such/folder.h5");
    press(Qt::Key_F9);
    ASSERT_TRUE(ends());
    EXPECT_NE(user.told.find("no/such/folder.h5"), std::string::npos) << user.told;
    EXPECT_FALSE(page().readOnly);

    open(R"({"drivers": []})");
    press(Qt::Key_F9);
    EXPECT_NE(user.told.find("no instrument"), std::string::npos) << user.told;
    EXPECT_FALSE(page().readOnly);
}

TEST_F(RecordingWindowTest, ARecordingOpensWithItsSetUpReadOnlyAndItsSummary)
{
    open(setupOf(R"("duration": 2, )", standing));
    press(Qt::Key_F9);
    ASSERT_TRUE(ends());
    window.files().open(toQt(file("other.json", R"({"drivers": []})")));
    EXPECT_EQ(state(), "There is no recording to show.");
    window.files().open(toQt(user.record));
    ASSERT_EQ(window.session().drivers().size(), 1U);
    EXPECT_TRUE(page().readOnly);
    window.files().open(toQt(user.record));
    EXPECT_TRUE(page().readOnly) << "after another one, too";
    EXPECT_EQ(page().txtDuration.text(), "2");
    EXPECT_EQ(state(), "The recording is complete.");
    EXPECT_EQ(summary().rowCount(), 1);
    EXPECT_TRUE(window.windowTitle().startsWith("out.h5"));
    EXPECT_EQ(window.files().recent().files().value(0), toQt(user.record));
    const std::string damaged = file("damaged.h5", "\x89HDF\r\n\x1a\nand no more");
    window.files().open(toQt(damaged));
    EXPECT_NE(user.told.find("damaged.h5: is no recording"), std::string::npos) << user.told;
    EXPECT_TRUE(recording().isOpened() && page().readOnly) << "the one that is open stays open";
    user.saveAs = folder.file("again.json");
    window.files().save();
    EXPECT_EQ(window.session().file(), user.saveAs) << "the recording itself is never overwritten";
    EXPECT_TRUE(QTest::qWaitFor([this] { return !page().readOnly; })) << "what is saved can be edited";
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(state(), "The recording is complete.") << "and is shown on";
    EXPECT_EQ(heldIn(user.record).instruments.size(), 1U);
    window.files().open(toQt(file("other.json", R"({"drivers": [{"name": "B"}]})")));
    EXPECT_FALSE(page().readOnly);
    action(hostText::viewMenu, hostText::readOnly).trigger();
    for (const std::string& next : {user.record, user.saveAs})
        window.files().open(toQt(next));
    EXPECT_TRUE(page().readOnly) << "as the user has set it";
}

} // namespace
} // namespace ko::test
