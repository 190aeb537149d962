#include "FrameTest.h"
#include "fakes/Thrown.h"
#include "host/support/InputError.h"

#include <QStatusBar>

namespace ko::test {
namespace {

class ReplayTest : public FrameTest {
protected:
    const std::string bench = file("bench.json", R"({"drivers": [{"name": "A",
        "timebase": {"startMode": 0, "duration": 5, "samplePeriod": {"value": 0.001, "choices": [0.001, 0.002]}},
        "groups": [{"name": "G", "channels": [{"address": "0:1", "name": "C"}]}]}]})");

    ReplayTest()
    {
        show();
        window.replay().setPace(0);
    }
    ReplayResult play(const std::string& script) { return window.replay().play(file("a.scenario", script)); }
    static std::string shown(const ReplayResult& result)
    {
        std::string rows;
        for (const ReplayDifference& row : result.differences)
            rows += std::to_string(row.line) + ": " + row.command + " | " + row.expected.value_or("-") + " | " +
                    row.found.value_or("-") + "\n";
        return rows + result.fault;
    }
};

TEST_F(ReplayTest, WhatAScriptExpectsAndDoesNotFindIsNamedWithItsLine)
{
    const ReplayResult result = play("# a comment\n"
                                     "setup bench.json\nshow\n"
                                     "expect txtDuration text 6\n"
                                     "text txtDuration 7\nleave\n"
                                     "expect txtDuration text 7\n"
                                     "expect-failing A none\nfail A \"Duration get\"\nhide\nshow\n"
                                     "expect-failing A none\nheal A\n"
                                     "click txtDuration\n");
    EXPECT_EQ(shown(result), "4: expect txtDuration text 6 | 6 | 5\n"
                             "12: expect-failing A none | none | Duration get\n"
                             "the control \"txtDuration\" cannot be clicked");
    EXPECT_EQ(result.lastLine, 14);
    EXPECT_EQ(driver().held().timebase->duration, 7.0F);
    EXPECT_EQ(window.session().file(), bench);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_TRUE(window.page().isVisible());
}

TEST_F(ReplayTest, EachEditOfAScriptIsAStepThatCanBeUndoneAndEarlierStepsStay)
{
    window.open(bench);
    window.page().view().act([this] { page().optStartTime.userClicked(); });
    ASSERT_EQ(window.history().steps().position(), 1U);
    EXPECT_EQ(shown(play("choose cmbSamplePeriod 0.002\ntext txtDuration 8\nleave\nenable A 0 0 0\n")), "");
    EXPECT_EQ(window.history().steps().position(), 4U);
    EXPECT_TRUE(window.history().revertToSaved());
    EXPECT_EQ(driver().held(), loadSetup(bench).instruments.at(0));
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(ReplayTest, DialogsMessagesAndPastingAreAnsweredByTheScriptWhileTheUserWatches)
{
    window.open(bench);
    QGuiApplication::clipboard()->setText("the user's");
    bool isDialogSeen = false;
    QTimer watcher;
    QObject::connect(&watcher, &QTimer::timeout, [&] {
        const QWidget* const front = QApplication::activeModalWidget();
        isDialogSeen = isDialogSeen || (front && !qobject_cast<const QMessageBox*>(front));
    });
    watcher.start(0);
    const ReplayResult result = play(
        "clock \"2026-11-21 09:30:00\"\nclick optStartTime\n"
        "dialog SetDateTime\n  click optSpecifiedDay\n  text calDate 2026-12-24\n  text dtpTimeSelector 10:00:00\n"
        "  click btnOK\nend\nclick cmdStartTime\n"
        "expect txtStartTime text \"12/24/2026 10:00:00 AM\"\n"
        "dialog SetDateTime\n  click optSpecifiedDay\n  text calDate 2027-01-01\nend\nclick cmdStartTime\n"
        "expect txtStartTime text \"12/24/2026 10:00:00 AM\"\n"
        "clipboard 9\nfocus txtDuration\nselect txtDuration 0 1\ncommand 57637\nleave\n"
        "expect txtDuration text 9\n"
        "focus txtDuration\ntext txtDuration x\nok-to-leave\nkey Escape\nexpect txtDuration text 9\nread-only on\n");
    EXPECT_EQ(shown(result), "");
    EXPECT_TRUE(result.isWhole) << result.lastLine;
    EXPECT_TRUE(isDialogSeen);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "the user's");
    EXPECT_TRUE(action(hostText::viewMenu, hostText::readOnly).isChecked());
}

TEST_F(ReplayTest, EscapeStopsAScriptAndOtherInputOfTheUserDoesNothing)
{
    window.open(bench);
    std::string script;
    for (int i = 0; i < 2000; ++i)
        script += "text txtDuration " + std::to_string(10 + i) + "\n";
    int keys = 0;
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout,
                     [&] { QTest::keyClick(&window, ++keys < 20 ? Qt::Key_9 : Qt::Key_Escape); });
    hand.start(0);
    const ReplayResult result = play(script);
    EXPECT_FALSE(result.isWhole);
    EXPECT_LT(result.lastLine, 100);
    EXPECT_EQ(page().txtDuration.text(), std::to_string(9 + result.lastLine));
    EXPECT_TRUE(window.isVisible());
}

TEST_F(ReplayTest, WhatAWindowCannotPlayIsRefusedBeforeAnythingIsPlayed)
{
    window.open(bench);
    for (const char* line :
         {"terminate", "document", "print Laser", "locale decimalSeparator=,", "locale nothing", "fly", "\"open"}) {
        const std::string reason =
            thrownBy<InputError>([&] { play("text txtDuration 9\n" + std::string(line) + "\n"); });
        EXPECT_NE(reason.find("a.scenario:2: "), std::string::npos) << line << ": " << reason;
    }
    EXPECT_EQ(driver().held().timebase->duration, 5.0F);
}

TEST_F(ReplayTest, AScriptThatOpensASetUpAsksAboutChangesAndAPageLeftPartlyIsShownWhole)
{
    window.open(bench);
    window.page().view().act([this] { page().optStartTime.userClicked(); });
    EXPECT_EQ(play("setup other.json\n").lastLine, 0);
    EXPECT_EQ(user.asked, 1);
    EXPECT_EQ(shown(play("hand-over 0\nhide\n")), "");
    EXPECT_EQ(user.asked, 1);
    EXPECT_EQ(page().drivers.size(), 1U);
    EXPECT_TRUE(page().isShown);
    EXPECT_TRUE(window.isWindowModified());
    user.unsaved = Unsaved::Discard;
    EXPECT_NE(play("setup none.json\n").fault.find("none.json"), std::string::npos);
    EXPECT_EQ(window.session().file(), bench);
}

TEST(Replay, TheWindowMayBeDestroyedInABlockInsideAnyCommand)
{
    const Folder folder;
    for (const char* command :
         {"setup", "instruments bench.json", "hand-over", "show", "read-only on", "text txtDuration 8", "undo"}) {
        SCOPED_TRACE(command);
        const std::string opened = folder.file("open.json", oneInstrument);
        folder.file("bench.json", R"({"drivers": [{"name": "A", "timebase": {"duration": 3}}]})");
        const std::string script =
            folder.file("a.scenario", "text txtDuration 7\nleave\nduring A \"Duration get\"\nprocessed\nend\n" +
                                          std::string(command) + "\n");
        auto window = std::make_unique<FrameWindow>("");
        window->replay().setPace(0);
        window->open(opened);
        window->show();
        const QString inBlock = window->text(textNumber::replay::playing).arg(QStringLiteral("a.scenario"), "4");
        QTimer host;
        QObject::connect(&host, &QTimer::timeout, [&] {
            if (window && window->statusBar()->currentMessage() == inBlock)
                window.reset();
        });
        host.start(0);
        window->replay().play(script);
        EXPECT_EQ(window, nullptr) << "the block was played";
    }
}

} // namespace
} // namespace ko::test
