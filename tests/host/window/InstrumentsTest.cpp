#include "FrameTest.h"
#include "host/docks/DriverLog.h"
#include "interfaces/Timebase.h"

#include <QAbstractItemModelTester>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>

namespace ko::test {
namespace {

class InstrumentsTest : public FrameTest {
protected:
    QTreeView& tree = *window.instruments().findChild<QTreeView*>();
    QAbstractItemModel& rows = window.instruments().model();
    DriverLogModel& log = window.driverLog().model();

    void SetUp() override
    {
        open(R"({"drivers": [{"name": "Digitizer", "triggerLines": {},
            "timebase": {"samplePeriod": {"value": 0.5, "choices": [0.5, 1]}, "startTime": 46347.5, "duration": 25.6},
            "groups": [{"name": "Inputs", "channels": [{"address": "0:1", "name": "Crank", "triggerSource": true,
                "triggerParameters": [{"id": 2, "name": "Level", "type": "Float", "value": 1.5}]},
                {"address": "0:2", "enabled": 0}]}]},
            {"name": "Scanner", "samplingMode": 2, "timebase": {}}]})");
        action(hostText::viewMenu, hostText::instruments).trigger();
        action(hostText::viewMenu, hostText::driverLog).trigger();
        show();
    }
    /// Returns the row at the end of a path of names; an invalid index if there is none.
    QModelIndex row(const QStringList& path, int column = 0)
    {
        QModelIndex found;
        for (const QString& name : path) {
            const QModelIndexList hits = rows.match(rows.index(0, 0, found), Qt::DisplayRole, name, 1);
            if (hits.isEmpty())
                return {};
            found = hits.constFirst();
        }
        return found.siblingAtColumn(column);
    }
    QString value(const QStringList& path) { return row(path, 1).data().toString(); }
    [[nodiscard]] QString logged(int fromEnd, int column)
    {
        log.flush();
        return log.index(log.rowCount() - fromEnd, column).data().toString();
    }
};

TEST_F(InstrumentsTest, TheTreeShowsPresentValuesWithoutCallingAnInstrument)
{
    const auto calls = driver().calls().callCount();
    EXPECT_EQ(value({"Digitizer", "Timebase", "Sample period"}), "0.5 s");
    EXPECT_EQ(driver().calls().callCount(), calls);
    tree.expandAll();
    window.driverLog().hide();
    const QWidget& rowsSeen = *tree.viewport();
    const auto seen = [&] {
        QCoreApplication::processEvents();
        const QPoint at = rowsSeen.mapTo(&window, QPoint());
        return window.screen()->grabWindow(window.winId(), at.x(), at.y(), rowsSeen.width(), rowsSeen.height());
    };
    QImage before;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        const QImage last = std::exchange(before, seen().toImage());
        return !last.isNull() && last == before;
    }));
    driver().queryTimebase()->setDuration(7);
    EXPECT_NE(seen().toImage(), before) << "shown after a call that nobody else has made";
    page().cmbSampleRate.userChose(0);
    page().cmbSampleRate.userChose(1);
    EXPECT_EQ(value({"Digitizer", "Timebase", "Sample period"}),
              QString("%1 s").arg(driver().held().timebase->samplePeriod.value));
}

TEST_F(InstrumentsTest, AChannelIsSwitchedInTheTreeAndThePageReloadsTheInstruments)
{
    const QModelIndex spare = row({"Digitizer", "Inputs", "0:2"});
    tree.scrollTo(spare);
    tree.setCurrentIndex(spare);
    tree.setFocus();
    EXPECT_EQ(spare.data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
    const std::string before = page().lblNumDynamicBytesValue.caption();
    QTest::keyClick(&tree, Qt::Key_Space);
    EXPECT_EQ(spare.data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_NE(page().lblNumDynamicBytesValue.caption(), before);
    EXPECT_TRUE(window.isWindowModified());
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), &tree);
    QTest::keyClick(&tree, Qt::Key_Space);
    EXPECT_TRUE(rows.setData(row({"Digitizer", "Inputs", "Crank (0:1)"}), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_FALSE(driver().held().groups[0].channels[0].isEnabled());
}

TEST_F(InstrumentsTest, WhatIsSetStaysWhenAChannelIsSwitchedAndWhenTheInstrumentsAreHandedOverAgain)
{
    open(R"({"drivers": [
        {"name": "A", "timebase": {}, "triggerLines": {"startMasterRank": 5},
         "groups": [{"name": "G", "channels": [{"address": "0:1"}]}]},
        {"name": "B", "samplingMode": 2, "timebase": {}, "triggerLines": {"scanMasterRank": 5},
         "groups": [{"name": "G", "channels": [{"address": "0:1"}]}]}]})");
    const InDialog<QDialog> choose([](QDialog& dialog) {
        for (const char* const button : {"optStartTrig(5)", "optScanTrig(6)", "btnOK"})
            dialog.findChild<QAbstractButton*>(button)->click();
    });
    page().mnuTimebaseTriggerLines.userClicked();
    page().optStartTime.userClicked();
    const auto heldTimebases = [&] {
        ko::Setup setup = withPresentValues({}, drivers());
        for (InstrumentSettings& instrument : setup.instruments)
            instrument.groups.clear();
        return setupText(setup);
    };
    ASSERT_EQ(driver().held().triggerLines->startTriggerLine, 5);
    const std::string before = heldTimebases();
    const auto tick = [&](const char* name) {
        return [this, name] { rows.setData(row({name, "G", "0:1"}), Qt::Unchecked, Qt::CheckStateRole); };
    };
    const std::pair<std::function<void()>, bool> changes[]{
        {tick("A"), true},
        {[&] { window.instruments().handOver(); }, false},
        {[&] { window.findChild<QPushButton*>("tryAgain")->click(); }, false},
        {tick("B"), true}};
    for (const auto& [change, marks] : changes) {
        window.history().saved();
        change();
        EXPECT_EQ(heldTimebases(), before);
        EXPECT_EQ(page().lines.line(LineTrigger::start), 5);
        EXPECT_EQ(page().lines.line(LineTrigger::scan), 6);
        EXPECT_EQ(window.session().isChanged(), marks);
    }
}

TEST_F(InstrumentsTest, WhenTheTreeIsFilledAnewItsRowsStayOpenChosenAndCurrent)
{
    const QStringList crank{"Digitizer", "Inputs", "Crank (0:1)"}, spare{"Digitizer", "Inputs", "0:2"};
    tree.expand(row({"Digitizer"}));
    tree.expand(row({"Digitizer", "Inputs"}));
    tree.selectionModel()->select(row(crank), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    tree.selectionModel()->setCurrentIndex(row(spare), QItemSelectionModel::NoUpdate);
    tree.setFixedHeight(5 * tree.fontMetrics().height());
    QCoreApplication::processEvents();
    tree.verticalScrollBar()->setValue(2);
    for (int times = 0; times < 2; ++times) {
        window.docks().follow(drivers());
        EXPECT_TRUE(tree.isExpanded(row({"Digitizer"})) && tree.isExpanded(row({"Digitizer", "Inputs"})));
        EXPECT_FALSE(tree.isExpanded(row({"Digitizer", "Timebase"})) || tree.isExpanded(row({"Scanner"})));
        EXPECT_EQ(tree.selectionModel()->selectedRows(), QModelIndexList{row(crank)});
        EXPECT_EQ(tree.currentIndex(), row(spare));
        EXPECT_EQ(tree.verticalScrollBar()->value(), 2);
    }
    tree.selectionModel()->clear();
    window.docks().follow(drivers());
    EXPECT_FALSE(tree.currentIndex().isValid());
}

TEST_F(InstrumentsTest, AnOperationIsMadeToFailAndHealedAgain)
{
    tree.setCurrentIndex(row({"Digitizer"}));
    const auto tick = [&](const char* operation, const char* thenPress) {
        auto* button = window.instruments().findChild<QPushButton*>("faults");
        EXPECT_TRUE(button->isEnabled());
        QTest::mouseClick(button, Qt::LeftButton);
        auto* dialog = window.findChild<QDialog*>();
        ASSERT_NE(dialog, nullptr);
        auto* list = dialog->findChild<QListWidget*>();
        EXPECT_EQ(list->currentRow(), 0);
        EXPECT_EQ(list->item(list->count() - 1)->text(), "DynamicBytes");
        for (QListWidgetItem* item : list->findItems(operation, Qt::MatchExactly))
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
        if (auto* heal = dialog->findChild<QPushButton*>(thenPress))
            heal->click();
        dialog->accept();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    tick("SamplePeriod set", "");
    tick("BlockSize set", "");
    EXPECT_EQ(value({"Digitizer"}), "Simulated faults: SamplePeriod set, BlockSize set");
    EXPECT_TRUE(window.isWindowModified());
    page().cmbSampleRate.userChose(0);
    page().cmbSampleRate.userChose(1);
    EXPECT_TRUE(window.findChild<QToolButton*>("reportCount")->isVisible());
    EXPECT_TRUE(logged(1, DriverLogModel::Result).contains("simulated failure")) << "the last call that was heard";
    tick("SamplePeriod set", "");
    EXPECT_EQ(value({"Digitizer"}), "Simulated faults: BlockSize set");
    tick("", "healAll");
    EXPECT_EQ(value({"Digitizer"}), "");
}

TEST_F(InstrumentsTest, TheLogShowsWritesKeptValuesAndFailuresAndCanBeCopied)
{
    log.clear();
    Timebase& timebase = *driver().queryTimebase();
    timebase.setSamplePeriod(1);
    timebase.setSamplePeriod(0.7);
    driver().calls().fail({"StopMode set", 77, "stuck"});
    EXPECT_THROW(timebase.setStopMode(1), Failure);
    EXPECT_THROW(driver().GroupName(7), Failure);
    timebase.setDuration(25.6F);
    log.flush();
    ASSERT_EQ(log.rowCount(), 5);
    const char* const expected[][5]{{"Digitizer", "SamplePeriod set", "", "1", ""},
                                    {"Digitizer", "SamplePeriod set", "", "0.7", "Kept: 0.5"},
                                    {"Digitizer", "StopMode set", "", "1", "Failed: stuck (77)"},
                                    {"Digitizer", "GroupName", "7", "", "Failed: Subscript out of range (9)"},
                                    {"Digitizer", "Duration set", "", "25.6", ""}};
    for (int row = 0; row < 5; ++row)
        for (int column = 0; column < 5; ++column) {
            const QModelIndex cell = log.index(row, column + 1);
            EXPECT_EQ(cell.data().toString(), expected[row][column]) << row << ' ' << column;
            EXPECT_EQ(cell.data(Qt::ToolTipRole).toString().isEmpty(), *expected[row][column] == '\0');
            EXPECT_EQ(cell.data(Qt::DecorationRole).isValid(), cell.data().toString().startsWith("Failed"));
        }
    auto* view = window.driverLog().findChild<QTreeView*>();
    window.driverLog().copy();
    EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 5);
    view->setCurrentIndex(log.index(2, 0));
    view->selectionModel()->select(log.index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    view->setFocus();
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().replace(QRegularExpression("\\d\\d:\\d\\d:\\d\\d\\.\\d{3}\t"), "|"),
              "|Digitizer\tSamplePeriod set\t\t1\t\n|Digitizer\tStopMode set\t\t1\tFailed: stuck (77)\n");
    window.driverLog().findChild<QPushButton*>("clearLog")->click();
    EXPECT_EQ(log.rowCount(), 0);
}

TEST_F(InstrumentsTest, EditKeysInADockLeaveThePageAlone)
{
    auto& box = static_cast<QLineEdit&>(at(page().txtDuration));
    QTest::mouseClick(&box, Qt::LeftButton);
    box.selectAll();
    ASSERT_EQ(page().txtDuration.text(), "25.6");
    QDockWidget& dock = window.driverLog();
    for (const bool isFloating : {false, true}) {
        dock.setFloating(isFloating);
        ASSERT_TRUE(QTest::qWaitFor([&] {
            dock.window()->activateWindow();
            return dock.isActiveWindow();
        }));
        dock.setFocus();
        QWidget* const focused = QApplication::focusWidget();
        ASSERT_TRUE(dock.isAncestorOf(focused));
        QTest::keyClick(focused, Qt::Key_Delete);
        QTest::keyClick(focused, Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(page().txtDuration.text(), "25.6");
        QTest::keyClick(focused, Qt::Key_C, Qt::ControlModifier);
        EXPECT_TRUE(QApplication::clipboard()->text().contains("Duration set"));
        QApplication::clipboard()->clear();
    }
}

TEST_F(InstrumentsTest, TheLogIsBoundedAndItsLatestRowsStay)
{
    const QAbstractItemModelTester fatal(&log, QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (std::size_t i = 0; i < DriverLogModel::most + 10; ++i) {
        driver().queryTimebase()->setBlockSize(static_cast<double>(i));
        if (i % 3000 == 0)
            log.flush();
    }
    log.flush();
    const QScrollBar& bar = *window.driverLog().findChild<QTreeView*>()->verticalScrollBar();
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.maximum() > 0 && bar.value() == bar.maximum(); })) << "at the end";
    EXPECT_LE(log.rowCount(), static_cast<int>(DriverLogModel::most));
    EXPECT_GE(log.rowCount(), static_cast<int>(DriverLogModel::most / 2));
    EXPECT_EQ(logged(1, DriverLogModel::Value), "10009");
}

} // namespace
} // namespace ko::test
