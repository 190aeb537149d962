#pragma once

#include "FrameTest.h"

#include <span>

namespace ko::test {

inline const char* const triggeredBench = R"({"drivers": [
  {"name": "Digitizer", "hasTriggerParameters": true,
   "timebase": {"samplePeriod": {"value": 0.001, "choices": [1e-12, 0.001]}},
   "triggerLines": {"startMasterRank": 5},
   "groups": [{"name": "Inputs", "channels": [
     {"address": "0:3:1", "name": "Crank", "triggerSource": true, "triggerParameters": [
       {"id": 2, "name": "Level", "type": "Float", "min": -10, "max": 10, "value": 0.5}]}]}]},
  {"name": "Scanner", "samplingMode": 2, "timebase": {}, "triggerLines": {"scanMasterRank": 5}}]})";

/// A window on a set-up. The window or its contents are ended while one of its boxes, dialogs or menus is open.
struct Desk {
    const Folder folder;
    std::unique_ptr<FrameWindow> window = std::make_unique<FrameWindow>("");
    std::string setup = folder.file("bench.json", triggeredBench);

    Desk()
    {
        window->open(setup);
        window->show();
        activate();
    }
    void activate() const
    {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    [[nodiscard]] Page& page() const { return window->document().page(); }
    template <class Widget = QWidget> [[nodiscard]] Widget& at(const Control& control) const
    {
        return dynamic_cast<Widget&>(*window->page().view().widget(control));
    }
    void click(PressControl& control) const { QTest::mouseClick(&at(control), Qt::LeftButton); }
    /// Shows the dock of the instruments with the first of them chosen, and returns its tree.
    [[nodiscard]] QTreeView& tree() const
    {
        window->instruments().setVisible(true);
        window->instruments().select(0);
        return *window->instruments().findChild<QTreeView*>();
    }
    /// Starts a window anew that finds this copy of unsaved changes.
    void offerCopy(const std::string& content)
    {
        folder.file("a.unsaved", content);
        window = std::make_unique<FrameWindow>("", folder.file("window.json"));
        window->show();
        window->autosave().offer(window->files().questions());
    }
    /// Leaves an invalid text in the box of the duration.
    QWidget& mistype() const
    {
        page().moveFocus(&page().txtDuration);
        page().txtDuration.userReplaced("x", 1, 0);
        return at(page().txtDuration);
    }
    /// Chooses an entry of the open menu by keys.
    static void choose(QMenu& menu, int entry)
    {
        menu.popup({});
        menu.setActiveAction(menu.actions().at(entry));
        QTest::keyClick(&menu, Qt::Key_Return);
    }
    void choose(int menu, int text) const
    {
        for (QAction* bar : window->menuBar()->actions())
            for (int i = 0; bar->text() == window->text(menu) && i < bar->menu()->actions().size(); ++i)
                if (bar->menu()->actions()[i]->text() == window->text(text))
                    return choose(*bar->menu(), i);
        ADD_FAILURE() << "no such menu entry";
    }
};

/// A way to open a box, a dialog or a menu.
struct Opening {
    const char* name = nullptr;
    void (*open)(Desk&) = nullptr;
    bool isPopup = false;
    bool isQuestion = false; ///< a message box of a dialog
};

/// All ways.
std::span<const Opening> openings();

} // namespace ko::test
