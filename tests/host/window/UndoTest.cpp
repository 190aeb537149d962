#include "FrameTest.h"

#include <QStatusBar>
#include <QUndoView>

namespace ko::test {
namespace {

const char* const undoBench = R"({"drivers": [
  {"name": "A", "timebase": {"samplePeriod": {"value": 0.001, "range": [1e-6, 1]}},
   "groups": [{"name": "G", "channels": [{"address": "0:1"}, {"address": "0:2"}]}]},
  {"name": "B", "samplingMode": 2, "timebase": {"scanPeriod": {"value": 0.1, "range": [0.001, 10]}}}]})";

class UndoTest : public FrameTest {
protected:
    void SetUp() override
    {
        open(undoBench);
        show();
    }
    /// Types into a box as a user does who comes by the Tab key and leaves by it.
    void enter(TextBox& box, const char* text)
    {
        at(box).setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&at(box), QString::fromUtf8(text));
        QTest::keyClick(&at(box), Qt::Key_Tab);
    }
    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    QMenu& edit() { return *window.menuBar()->actions()[1]->menu(); }
    QAction& menuEntry(int place) { return *edit().actions()[place]; }
    std::size_t position() { return window.history().steps().position(); }
    void check(bool on) { window.instruments().model().enable(driver(), 0, 0, on); }
};

TEST_F(UndoTest, KeysUndoAndRedoEditsAndTheMarkFollowsTheSavedState)
{
    const std::string opened = held();
    enter(page().txtDuration, "25");
    enter(page().txtSampleRate, "5000");
    enter(page().txtScanRate, "5");
    check(false);
    EXPECT_EQ(position(), 4U);
    EXPECT_TRUE(window.isWindowModified());
    const std::string edited = held();
    at(page().txtSampleRate).setFocus();
    for (std::size_t i = 4; i > 0; --i)
        undo();
    EXPECT_EQ(held(), opened);
    EXPECT_EQ(page().txtSampleRate.text(), "1000");
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(at(page().txtSampleRate).hasFocus()) << "the focus stays";
    undo();
    EXPECT_EQ(held(), opened) << "no more steps";
    for (std::size_t i = 0; i < 4; ++i)
        redo();
    EXPECT_EQ(held(), edited);
    user.saveAs = folder.file("saved.json");
    action(hostText::fileMenu, hostText::save).trigger();
    EXPECT_FALSE(window.isWindowModified());
    undo();
    EXPECT_TRUE(window.isWindowModified()) << "other than saved";
    enter(page().txtDuration, "26");
    const InDialog discard([](QMessageBox& box) { box.button(QMessageBox::Discard)->click(); });
    action(hostText::fileMenu, textNumber::history::revert).trigger();
    EXPECT_FALSE(window.isWindowModified()) << "read from the file, because no step leads to the saved state";
}

TEST_F(UndoTest, InABoxThatIsBeingEditedUndoIsEscape)
{
    at(page().txtDuration).setFocus(Qt::TabFocusReason);
    const std::string before = held();
    QTest::keyClicks(&at(page().txtDuration), "25.6");
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_TRUE(window.statusBar()->findChild<QLabel*>("hint")->text().contains(window.text(3550).arg("10")));
    undo();
    EXPECT_EQ(held(), before);
    EXPECT_EQ(page().txtDuration.text(), "10");
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(window.history().steps().steps().size(), 0U);
}

TEST_F(UndoTest, WhatIsStillTypedIsSavedAndRevertedAsAStep)
{
    enter(page().txtSampleRate, "5000");
    enter(page().txtScanRate, "5");
    action(hostText::fileMenu, hostText::save).trigger();
    undo();
    at(page().txtDuration).setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&at(page().txtDuration), "777");
    action(hostText::fileMenu, hostText::save).trigger();
    EXPECT_FALSE(window.isWindowModified()) << "saved with the focus in the box";
    QTest::keyClicks(&at(page().txtDuration), "8");
    EXPECT_TRUE(window.isWindowModified());
    const std::string typed = held();
    action(hostText::fileMenu, textNumber::history::revert).trigger();
    EXPECT_NE(held(), typed);
    EXPECT_EQ(position(), 2U);
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(UndoTest, TheMenuNamesTheStepAndAReadOnlyPageHasNone)
{
    enter(page().txtSampleRate, "5000");
    Q_EMIT edit().aboutToShow();
    EXPECT_EQ(menuEntry(0).text(), window.text(textNumber::history::undoStep).arg("Sample rate 1000 → 5000"));
    EXPECT_TRUE(menuEntry(0).isEnabled());
    EXPECT_FALSE(menuEntry(1).isEnabled());
    Q_EMIT edit().aboutToHide();
    menuEntry(0).trigger();
    EXPECT_EQ(menuEntry(1).text(), window.text(textNumber::history::redoStep).arg("Sample rate 1000 → 5000"));
    redo();
    window.document().mode().setReadOnly(true);
    Q_EMIT edit().aboutToShow();
    EXPECT_FALSE(menuEntry(0).isEnabled());
    Q_EMIT edit().aboutToHide();
    undo();
    QTest::keyClick(window.history().dock().findChild<QUndoView*>(), Qt::Key_Home);
    EXPECT_EQ(position(), 1U);
}

TEST_F(UndoTest, TheOldestStepsAreForgottenAndLaterTheSavedStateWithThem)
{
    bool on = true;
    const auto editTo = [&](std::size_t steps) {
        for (std::size_t i = position(); i < steps; ++i)
            check(on = !on);
    };
    editTo(2);
    action(hostText::fileMenu, hostText::save).trigger();
    editTo(History::maximumSteps);
    auto& list = *window.history().dock().findChild<QUndoView*>();
    for (const int saved : {1, 0, -1}) {
        check(on = !on);
        EXPECT_EQ(window.history().steps().steps().size(), History::maximumSteps);
        QTest::keyClick(&list, Qt::Key_Home);
        EXPECT_EQ(window.isWindowModified(), saved != 0);
        redo();
        EXPECT_EQ(window.isWindowModified(), saved != 1);
        QTest::keyClick(&list, Qt::Key_End);
    }
}

TEST_F(UndoTest, TheDockJumpsToAnyStepAndStaysWhereAnInstrumentRefuses)
{
    const std::string opened = held();
    for (const char* rate : {"5000", "2000", "500"})
        enter(page().txtSampleRate, rate);
    QDockWidget& dock = window.history().dock();
    dock.show();
    auto& list = *dock.findChild<QUndoView*>();
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(held(), opened);
    EXPECT_EQ(position(), 0U);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(position(), 1U);
    EXPECT_EQ(page().txtSampleRate.text(), "5000");
    EXPECT_TRUE(list.hasFocus());
    window.session().drivers()[0]->calls().fail({.operation = "SamplePeriod set"});
    QString message;
    answer(message);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_TRUE(message.contains("A")) << fromQt(message);
    EXPECT_TRUE(message.contains("simulated failure")) << fromQt(message);
    EXPECT_EQ(position(), 1U);
    EXPECT_EQ(list.currentIndex().row(), 1);
    EXPECT_EQ(page().txtSampleRate.text(), "5000");
}

} // namespace
} // namespace ko::test
