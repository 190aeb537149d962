#include "FrameTest.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"
#include "host/window/InstrumentsView.h"

#include <QListWidget>
#include <QTreeView>

namespace ko::test {
namespace {

const char* const linedBench = R"({"drivers": [
  {"name": "Fast", "timebase": {"samplePeriod": {"value": 0.001, "choices": [0.001, 0.002]}},
   "triggerLines": {"startMasterRank": 5, "startTriggerLine": 2, "startLinesAsMaster": [0, 1, 2],
                    "startLinesAsListener": [0, 1, 2]},
   "groups": [{"name": "Inputs", "channels": [{"address": "0:3:1", "name": "Crank", "triggerSource": true},
                                              {"address": "0:3:2", "name": "Cam"}]}]},
  {"name": "Slow", "samplingMode": 2, "timebase": {"duration": 20}}]})";

/// The instruments' dock, used by the keyboard.
class InstrumentEditsTest : public FrameTest {
protected:
    QTreeView& tree = *window.instruments().findChild<QTreeView*>();
    InstrumentsModel& rows = window.instruments().model();

    void SetUp() override
    {
        action(hostText::viewMenu, hostText::instruments).trigger();
        window.open(file("bench.json", linedBench));
        show();
        tree.setFocus();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    /// Inserts an instrument of the kind at this place in the gallery.
    void insert(int kind)
    {
        const Soon choose([kind] {
            QWidget* const gallery = QApplication::activeModalWidget();
            ASSERT_NE(gallery, nullptr);
            for (int i = 0; i < kind; ++i)
                QTest::keyClick(gallery->findChild<QListWidget*>(), Qt::Key_Down);
            QTest::keyClick(gallery, Qt::Key_Return);
        });
        press(Qt::Key_Insert);
        activate();
    }
    const SimulatedDrivers& drivers() { return window.session().drivers(); }
    std::vector<std::string> names()
    {
        std::vector<std::string> names;
        for (const auto& driver : drivers())
            names.push_back(driver->name());
        return names;
    }
    std::string held() { return setupText(withPresentValues({}, drivers())); }
    const std::vector<std::string>& steps() { return window.history().steps().steps(); }
    void undoAll()
    {
        while (window.history().steps().position() > 0)
            press(Qt::Key_Z, Qt::ControlModifier);
    }
    void redoAll()
    {
        while (window.history().steps().position() < steps().size())
            press(Qt::Key_Y, Qt::ControlModifier);
    }
};

TEST_F(InstrumentEditsTest, AddingAndRemovingAreStepsThatThePageFollowsAndUndoRestoresTheTriggerLines)
{
    const std::string opened = held();
    const SimulatedDrivers before = drivers();
    insert(2);
    EXPECT_EQ(names(), (std::vector<std::string>{"Fast", "Slow", "Counter"}));
    EXPECT_EQ(tree.currentIndex().data().toString(), "Counter");
    EXPECT_TRUE(tree.hasFocus());
    EXPECT_EQ(drivers()[0], before[0]) << "the same object";
    EXPECT_EQ(drivers()[2]->held().timebase->duration, drivers()[0]->held().timebase->duration) << "as the page";
    EXPECT_TRUE(window.isWindowModified());
    tree.setCurrentIndex(rows.index(0, 0));
    press(Qt::Key_Delete);
    EXPECT_EQ(names(), (std::vector<std::string>{"Slow", "Counter"}));
    EXPECT_EQ(page().txtSamplePeriod.text(), "0.0001") << "of the counter";
    tree.setFocus();
    tree.selectAll();
    press(Qt::Key_Delete);
    EXPECT_TRUE(page().imgNoInst.visible());
    EXPECT_EQ(steps(), (std::vector<std::string>{"Add Counter", "Remove Fast", "Remove Slow"}));
    const std::string emptied = held();
    undoAll();
    EXPECT_EQ(held(), opened);
    EXPECT_EQ(drivers(), before);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(page().cmbSamplePeriod.text(), "0.001");
    EXPECT_EQ(rows.rowCount(), 2);
    redoAll();
    EXPECT_EQ(held(), emptied);
}

TEST_F(InstrumentEditsTest, FailuresAndFaultsOfAnInstrumentThatStaysAreKept)
{
    drivers()[0]->calls().fail({.operation = "Duration set"});
    page().txtDuration.userReplaced("33", 2, 0);
    ASSERT_EQ(window.docks().health().failing().size(), 1U);
    insert(0);
    ASSERT_EQ(window.docks().health().failing().size(), 1U);
    EXPECT_FALSE(drivers()[0]->calls().failing().empty());
}

TEST_F(InstrumentEditsTest, AReadOnlyPageAndAnInvalidEntryLeaveTheInstrumentsAlone)
{
    QString message;
    const auto refuses = [&](int key, const QString& reason) {
        answer(message);
        QTest::keyClick(&tree, static_cast<Qt::Key>(key));
        activate();
        EXPECT_TRUE(message.contains(reason)) << fromQt(message);
        EXPECT_EQ(drivers().size(), 2U);
    };
    tree.setCurrentIndex(rows.index(0, 0));
    window.document().mode().setReadOnly(true);
    for (const int key : {Qt::Key_Delete, Qt::Key_Insert})
        refuses(key, window.text(textNumber::instrumentEdit::readOnly));
    window.document().mode().setReadOnly(false);
    page().moveFocus(&page().txtDuration);
    page().txtDuration.userReplaced("x", 1, 0);
    refuses(Qt::Key_Delete, {});
}

} // namespace
} // namespace ko::test
