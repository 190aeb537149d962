#include "FrameTest.h"
#include "platform/ChannelSelector.h"
#include "widgets/bindings/ChannelBrowser.h"

#include <QAccessible>
#include <QDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

namespace ko::test {
namespace {

const char* const bench = R"({"drivers": [
  {"name": "Digitizer", "timebase": {"startMode": 2},
   "triggerLines": {"startMasterRank": 5},
   "groups": [{"name": "Inputs", "channels": [
     {"address": "0:3:1", "name": "Crank", "triggerSource": true, "triggerParameters": [
       {"id": 2, "name": "Level", "type": "Float", "min": -10, "max": 10, "value": 0.5},
       {"id": 4, "name": "Slope", "type": "Enum", "choices": ["Rising", "Falling"], "value": "Rising"},
       {"id": 5, "name": "Noise", "type": "Bool", "value": false},
       {"id": 6, "name": "Remark", "type": "String", "value": "wheel"}]},
     {"address": "0:3:2", "name": "Cam"}]}]},
  {"name": "Scanner", "samplingMode": 2, "timebase": {"startMode": 2}, "triggerLines": {"scanMasterRank": 5}}]})";

/// The host's window on a set-up that starts on the trigger channel "Crank".
class TriggeringTest : public FrameTest {
protected:
    QTableWidget& table = static_cast<QTableWidget&>(at(page().grdParam));

    void SetUp() override
    {
        window.open(file("bench.json", bench));
        show();
    }
    void clickValue(int row)
    {
        const QRect cell = table.visualItemRect(table.item(row - 1, 1));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell.center());
    }
    std::string value(int row) { return page().grdParam.cell(row, 1).value; }
    static void press(int key, Qt::KeyboardModifiers held = {})
    {
        QWidget* front = QApplication::activeModalWidget();
        QTest::keyClick((front ? front : QApplication::activeWindow())->focusWidget(), static_cast<Qt::Key>(key), held);
    }
    /// Runs `act` in the dialog that `open` shows.
    template <class Act, class Open> static void inDialog(Act act, Open open)
    {
        bool shown = false;
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->activateWindow();
            shown = QTest::qWaitFor([&] { return dialog->isActiveWindow(); });
            act(*dialog);
            // A dialog that `act` has failed to close would block the test.
            if (dialog->isVisible()) {
                ADD_FAILURE() << "the dialog is still open";
                dialog->reject();
            }
        });
        open();
        EXPECT_TRUE(shown);
    }
};

TEST_F(TriggeringTest, ATextCellIsEditedByTypingAndEndsWithEnterTabOrEscape)
{
    ASSERT_EQ(table.rowCount(), 4);
    clickValue(1);
    EXPECT_EQ(page().activeControl(), &page().grdParam);
    ASSERT_EQ(page().grdParam.editedRow(), 1);
    QTest::keyClicks(QApplication::focusWidget(), "2.5");
    EXPECT_EQ(value(1), "0.5") << "not before the edit ends";
    press(Qt::Key_Return);
    EXPECT_EQ(value(1), "2.5");
    EXPECT_EQ(page().grdParam.editedRow(), 0);
    EXPECT_EQ(QApplication::focusWidget(), &table);
    EXPECT_EQ(table.currentRow(), 0);
    EXPECT_TRUE(window.isWindowModified());

    press(Qt::Key_7);
    EXPECT_EQ(page().grdParam.editor().text(), "7") << "typing opens the cell";
    press(Qt::Key_Escape);
    EXPECT_EQ(value(1), "2.5");
    press(Qt::Key_F2);
    press(Qt::Key_End);
    press(Qt::Key_5);
    press(Qt::Key_Tab);
    EXPECT_EQ(value(1), "2.55");
    EXPECT_NE(page().activeControl(), &page().grdParam);
    clickValue(4);
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_End);
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Return);
    EXPECT_EQ(value(4), "wheelwheel");
}

TEST_F(TriggeringTest, AChannelIsFoundByTheFilterAndChosenByADoubleClick)
{
    QWidget* button = &at(page().cmdChannel);
    inDialog(
        [](QDialog& dialog) {
            auto* browser = dynamic_cast<ChannelBrowser*>(dialog.findChild<QWidget*>("chsNavigate"));
            ASSERT_NE(browser, nullptr);
            QTreeWidgetItem* group = browser->tree->topLevelItem(0)->child(0);
            EXPECT_TRUE(group->child(0)->isSelected());
            EXPECT_TRUE(browser->tree->hasFocus());
            press(Qt::Key_Tab, Qt::ShiftModifier);
            EXPECT_TRUE(browser->filter->hasFocus());
            QTest::keyClicks(browser->filter, "cAm");
            EXPECT_TRUE(group->child(0)->isHidden());
            EXPECT_FALSE(group->child(1)->isHidden());
            const QRect line = browser->tree->visualItemRect(group->child(1));
            QTest::mouseClick(browser->tree->viewport(), Qt::LeftButton, {}, line.center());
            EXPECT_EQ(dialog.findChild<QPushButton*>("cmdHelp")->geometry().right(), browser->geometry().right());
            QTest::mouseDClick(browser->tree->viewport(), Qt::LeftButton, {}, line.center());
        },
        [&] { QTest::mouseClick(button, Qt::LeftButton); });
    EXPECT_EQ(page().txtChannel.text(), "Cam");
    EXPECT_EQ(table.rowCount(), 0);
    const auto pickCrank = [](int key) {
        return [key](QDialog& dialog) {
            auto* browser = dynamic_cast<ChannelBrowser*>(dialog.findChild<QWidget*>("chsNavigate"));
            QTest::keyClick(browser->tree, Qt::Key_Up);
            QTest::keyClick(browser->tree, static_cast<Qt::Key>(key));
        };
    };
    inDialog(pickCrank(Qt::Key_Escape), [&] { QTest::mouseClick(button, Qt::LeftButton); });
    EXPECT_EQ(page().txtChannel.text(), "Cam");
    inDialog(pickCrank(Qt::Key_Return), [&] { QTest::mouseClick(button, Qt::LeftButton); });
    EXPECT_EQ(page().txtChannel.text(), "Crank");
    inDialog([](QDialog& dialog) { dialog.close(); }, [&] { QTest::mouseClick(button, Qt::LeftButton); });
    EXPECT_EQ(page().txtChannel.text(), "Crank");
}

TEST_F(TriggeringTest, LinesAreChosenOnTheirTabs)
{
    ASSERT_EQ(page().lines.line(LineTrigger::start), 0);
    ASSERT_EQ(page().lines.line(LineTrigger::scan), 1);
    inDialog(
        [](QDialog& dialog) {
            auto* tabs = dialog.findChild<QTabWidget*>();
            ASSERT_NE(tabs, nullptr);
            auto* start = dialog.findChild<QRadioButton*>("optStartTrig(2)");
            auto* scan = dialog.findChild<QRadioButton*>("optScanTrig(2)");
            EXPECT_TRUE(start->isVisible());
            EXPECT_FALSE(scan->isVisible());
            EXPECT_FALSE(dialog.findChild<QRadioButton*>("optStartTrig(1)")->isEnabled());
            QTest::mouseClick(start, Qt::LeftButton, {}, QPoint(8, start->height() / 2));
            EXPECT_TRUE(start->isChecked());
            EXPECT_FALSE(scan->isEnabled());
            QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(1).center());
            EXPECT_TRUE(scan->isVisible());
            auto* chosen = dialog.findChild<QRadioButton*>("optScanTrig(1)");
            QTest::mouseClick(chosen, Qt::LeftButton, {}, QPoint(8, chosen->height() / 2));
            QTest::keyClick(chosen, Qt::Key_Up);
            EXPECT_TRUE(dialog.findChild<QRadioButton*>("optScanTrig(0)")->isChecked());
            EXPECT_EQ(dialog.findChild<QRadioButton*>("optScanTrig(1)")->toolTip(),
                      "Scanner drives the sync trigger on this line.");
            press(Qt::Key_Return);
        },
        [&] { page().mnuTimebaseTriggerLines.userClicked(); });
    EXPECT_EQ(page().lines.line(LineTrigger::start), 2);
    EXPECT_EQ(page().lines.line(LineTrigger::scan), 0);
}

/// Returns the name of a cell's header. The toolkit creates a new interface for each query.
QString nameOf(const QList<QAccessibleInterface*>& headers)
{
    const QString name = headers.at(0)->text(QAccessible::Name);
    for (QAccessibleInterface* header : headers)
        QAccessible::deleteAccessibleInterface(QAccessible::registerAccessibleInterface(header));
    return name;
}

TEST_F(TriggeringTest, TheMapOfTheLinesIsATableThatFollowsTheOptions)
{
    inDialog(
        [](QDialog& dialog) {
            auto* map = dialog.findChild<QTableWidget*>("tblStartMap");
            ASSERT_NE(map, nullptr);
            ASSERT_EQ(map->rowCount(), 2);
            ASSERT_EQ(map->columnCount(), 8);
            press(Qt::Key_Tab);
            press(Qt::Key_Tab);
            EXPECT_TRUE(map->hasFocus()) << "behind the tabs and the options";
            for (int i = 0; i < 3; ++i)
                press(Qt::Key_Right);
            press(Qt::Key_Down);
            QTest::mouseClick(dialog.findChild<QRadioButton*>("optStartTrig(3)"), Qt::LeftButton, {}, QPoint(8, 8));
            EXPECT_EQ(map->item(0, 3)->text(), "drives");
            EXPECT_EQ(map->currentItem(), map->item(1, 3)) << "the user's place";
            QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(map);
            EXPECT_EQ(seen->role(), QAccessible::Table);
            EXPECT_EQ(seen->text(QAccessible::Name), "Instruments and lines:");
            const QAccessibleTableInterface* cells = seen->tableInterface();
            QAccessibleInterface* cell = cells->cellAt(1, 3);
            EXPECT_EQ(cell->text(QAccessible::Name), "listens");
            EXPECT_EQ(cell->text(QAccessible::Description), "Line 3: Scanner listens for this trigger.");
            EXPECT_EQ(nameOf(cell->tableCellInterface()->rowHeaderCells()), "Scanner");
            EXPECT_EQ(nameOf(cell->tableCellInterface()->columnHeaderCells()), "Line 3");
            press(Qt::Key_Escape);
        },
        [&] { page().mnuTimebaseTriggerLines.userClicked(); });
    EXPECT_EQ(page().lines.line(LineTrigger::start), 0);
}

TEST_F(TriggeringTest, ManyInstrumentsScrollInsteadOfOutgrowingTheScreen)
{
    std::string drivers(bench);
    std::string more;
    for (int i = 0; i < 60; ++i)
        more += R"(, {"name": "Another instrument of a long name", "timebase": {}, "triggerLines": {}})";
    drivers.insert(drivers.rfind(']'), more);
    window.open(file("many.json", drivers.c_str()));
    inDialog(
        [](QDialog& dialog) {
            auto* map = dialog.findChild<QTableWidget*>("tblStartMap");
            EXPECT_EQ(map->rowCount(), 62);
            EXPECT_TRUE(map->verticalScrollBar()->isVisible());
            const QSize screen = dialog.screen()->availableSize();
            EXPECT_LE(dialog.width(), screen.width());
            EXPECT_LE(dialog.height(), screen.height());
            EXPECT_LE(dialog.minimumSizeHint().height(), 400);
            EXPECT_LE(dialog.minimumSizeHint().width(), 500);
            dialog.reject();
        },
        [&] { page().mnuTimebaseTriggerLines.userClicked(); });
}

} // namespace
} // namespace ko::test
