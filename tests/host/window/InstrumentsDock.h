#pragma once

#include "FrameTest.h"

namespace ko::test {

inline const char* const linedBench = R"({"drivers": [
  {"name": "Fast", "timebase": {"samplePeriod": {"value": 0.001, "choices": [0.001, 0.002]}},
   "triggerLines": {"startMasterRank": 5, "startTriggerLine": 2, "startLinesAsMaster": [0, 1, 2],
                    "startLinesAsListener": [0, 1, 2]},
   "groups": [{"name": "Inputs", "channels": [{"address": "0:3:1", "name": "Crank", "triggerSource": true},
                                              {"address": "0:3:2", "name": "Cam"}]}]},
  {"name": "Slow", "samplingMode": 2, "timebase": {"duration": 20}}]})";

/// The instruments' dock, used by the keyboard.
class InstrumentsDock : public FrameTest {
protected:
    QTreeView& tree = *window.instruments().findChild<QTreeView*>();
    InstrumentsModel& rows = window.instruments().model();

    void SetUp() override
    {
        action(hostText::viewMenu, hostText::instruments).trigger();
        open(linedBench);
        show();
        tree.setFocus();
    }
    /// Inserts an instrument of the kind at this place in the gallery.
    void insert(int kind)
    {
        const InDialog<QDialog> choose([kind](QDialog& gallery) {
            for (int i = 0; i < kind; ++i)
                QTest::keyClick(gallery.findChild<QListWidget*>(), Qt::Key_Down);
            QTest::keyClick(&gallery, Qt::Key_Return);
        });
        press(Qt::Key_Insert);
        activate();
    }
    /// Makes the row at the end of a path of row numbers current.
    void go(std::initializer_list<int> path)
    {
        QModelIndex at;
        for (const int row : path)
            at = rows.index(row, 0, at);
        go(at);
    }
    void go(const QModelIndex& at)
    {
        tree.setFocus();
        tree.selectionModel()->setCurrentIndex(at, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    void rename(const char* name)
    {
        press(Qt::Key_F2);
        press(Qt::Key_Delete);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(name));
        press(Qt::Key_Return);
        QCoreApplication::processEvents();
        tree.setFocus();
    }
    std::vector<std::string> names()
    {
        std::vector<std::string> names;
        for (const auto& driver : drivers())
            names.push_back(driver->name());
        return names;
    }
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

} // namespace ko::test
