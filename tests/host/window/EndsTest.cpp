#include "FrameTest.h"

#include <QContextMenuEvent>
#include <QFileDialog>
#include <QListView>

namespace ko::test {
namespace {

const char* const triggeredBench = R"({"drivers": [
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

void send(QWidget& widget, QEvent::Type type)
{
    const QPointF place(4, 4);
    QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &event);
}

const Opening openings[] = {
    {"Typed",
     [](Desk& desk) {
         desk.page().moveFocus(&desk.page().txtDuration);
         desk.page().txtDuration.userReplaced("1e", 2, 0);
         QTest::keyClick(&desk.at(desk.page().txtDuration), '9');
     }},
    {"ChosenByKey", [](Desk& desk) { QTest::keyClick(&desk.at(desk.page().cmbSamplePeriod), Qt::Key_Up); }},
    {"ChosenByMouse",
     [](Desk& desk) {
         auto& list = desk.at<QComboBox>(desk.page().cmbSamplePeriod);
         list.showPopup();
         QAbstractItemView& view = *list.view();
         // The list ignores a click right after the press that opened it.
         QTest::qWait(QApplication::doubleClickInterval() + 50);
         QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(0, 0)).center());
     }},
    {"LeftByTab", [](Desk& desk) { QTest::keyClick(&desk.mistype(), Qt::Key_Tab); }},
    {"LeftByPress",
     [](Desk& desk) { desk.mistype(), QTest::mousePress(&desk.at(desk.page().cmbSamplePeriod), Qt::LeftButton); }},
    {"Entered", [](Desk& desk) { QTest::keyClick(&desk.mistype(), Qt::Key_Return); }},
    {"DateButton", [](Desk& desk) { desk.page().optStartTime.userClicked(), desk.click(desk.page().cmdStartTime); }},
    {"DateByDoubleClick",
     [](Desk& desk) {
         desk.page().optStartTime.userClicked();
         desk.page().moveFocus(&desk.page().txtStartTime);
         send(desk.at(desk.page().txtStartTime), QEvent::MouseButtonDblClick);
     }},
    {"Offers", [](Desk& desk) { desk.click(desk.page().cmdSamplePeriodOffers); }},
    {"Lines", [](Desk& desk) { Desk::choose(desk.window->page().menu(), 0); }},
    {"Channel", [](Desk& desk) { desk.page().optOnTrigger.userClicked(), desk.click(desk.page().cmdChannel); }},
    {"Cell",
     [](Desk& desk) {
         desk.page().optOnTrigger.userClicked();
         auto& table = desk.at<QTableWidget>(desk.page().grdParam);
         QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(0, 1)).center());
         auto* box = table.findChild<QLineEdit*>();
         box->setText("99");
         desk.page().grdParam.userTypedInCell("99", 2, 0);
         QTest::keyClick(box, Qt::Key_Return);
     }},
    {"NoInstruments",
     [](Desk& desk) {
         desk.window->open(desk.folder.file("none.json", R"({"drivers": []})"));
         send(desk.at(desk.page().imgNoInst), QEvent::MouseButtonRelease);
     }},
    {"ContextMenu",
     [](Desk& desk) {
         QContextMenuEvent event(QContextMenuEvent::Mouse, {4, 4}, {4, 4});
         QApplication::sendEvent(&desk.at(desk.page().txtDuration), &event);
     },
     true},
    {"DropDown", [](Desk& desk) { desk.at<QComboBox>(desk.page().cmbSamplePeriod).showPopup(); }, true},
    {"About", [](Desk& desk) { desk.choose(hostText::helpMenu, hostText::about); }},
    {"FileToOpen", [](Desk& desk) { desk.choose(hostText::fileMenu, hostText::openSetup); }},
    {"FileToSave", [](Desk& desk) { desk.choose(hostText::fileMenu, hostText::saveAs); }},
    {"Overwritten",
     [](Desk& desk) {
         const InDialog<QFileDialog> accept([&](QFileDialog& files) {
             files.selectFile(toQt(desk.setup));
             static_cast<QDialog&>(files).accept();
         });
         desk.choose(hostText::fileMenu, hostText::saveAs);
     },
     false, true},
    {"Print", [](Desk& desk) { desk.choose(hostText::fileMenu, hostText::print); }},
    {"Preview", [](Desk& desk) { desk.choose(hostText::fileMenu, hostText::printPreview); }},
    {"Capture",
     [](Desk& desk) {
         QAction& entry = desk.window->capture().action();
         auto* menu = dynamic_cast<QMenu*>(entry.associatedObjects().front());
         Desk::choose(*menu, static_cast<int>(menu->actions().indexOf(&entry)));
     }},
    {"Unsaved", [](Desk& desk) { desk.window->session().setChanged(true), desk.window->close(); }},
    {"Conflict",
     [](Desk& desk) {
         desk.folder.file("bench.json", R"({"drivers": []})");
         desk.choose(hostText::fileMenu, hostText::save);
     }},
    {"FileToPlay", [](Desk& desk) { desk.choose(hostText::fileMenu, textNumber::replay::menu); }},
    {"Played",
     [](Desk& desk) {
         desk.window->replay().setPace(0);
         desk.window->replay().play(desk.folder.file("a.scenario",
                                                     "click optStartTime\n"
                                                     "dialog SetDateTime\nfocus btnOK\nfocus btnCancel\nend\n"
                                                     "click cmdStartTime\nfocus txtDuration\n"));
     }},
    {"Restore",
     [](Desk& desk) {
         desk.offerCopy(copyText({"a.json", {}, {}, {}}));
     }},
    {"DamagedCopy", [](Desk& desk) { desk.offerCopy("?"); }},
    {"NotOpened", [](Desk& desk) { desk.window->files().open("/none.json"); }},
    {"NotLeft", [](Desk& desk) { desk.mistype(), desk.choose(hostText::fileMenu, hostText::quit); }},
    {"RecordAs", [](Desk& desk) { desk.choose(hostText::fileMenu, textNumber::record::record); }},
    {"StopMonitor", [](Desk& desk) { desk.window->recording().monitor(), desk.window->close(); }},
    {"StopRecording",
     [](Desk& desk) {
         desk.window->files().setQuestions(std::make_unique<RecordsTo>(*desk.window, desk.folder.file("a.h5")));
         desk.window->recording().record();
         desk.window->close();
     }},
    {"Ticked",
     [](Desk& desk) {
         QTreeView& tree = desk.tree();
         tree.setCurrentIndex(desk.window->instruments().model().indexOf({0, 0, 0}));
         desk.mistype();
         QTest::keyClick(&tree, Qt::Key_Space);
     }},
    {"Plus",
     [](Desk& desk) {
         desk.window->open(desk.folder.file("none.json", R"({"drivers": []})"));
         QTest::mouseClick(desk.window->findChild<QToolButton*>("plus"), Qt::LeftButton);
     }},
    {"Gallery", [](Desk& desk) { QTest::keyClick(&desk.tree(), Qt::Key_Insert); }},
    {"Removed",
     [](Desk& desk) {
         QTreeView& tree = desk.tree();
         desk.mistype();
         QTest::keyClick(&tree, Qt::Key_Delete);
     }},
    {"RemovedReadOnly",
     [](Desk& desk) {
         QTreeView& tree = desk.tree();
         desk.window->document().mode().setReadOnly(true);
         QTest::keyClick(&tree, Qt::Key_Delete);
     }},
    {"Faults", [](Desk& desk) { desk.tree().findChild<QAction*>("faults")->trigger(); }},
    {"Properties", [](Desk& desk) { desk.tree().findChild<QAction*>("properties")->trigger(); }},
    {"PropertiesTaken",
     [](Desk& desk) {
         desk.tree().findChild<QAction*>("properties")->trigger();
         auto* const dialog = desk.window->instruments().findChild<QDialog*>();
         dialog->findChild<QLineEdit*>("name")->setText("Other");
         desk.mistype();
         QTest::keyClick(dialog, Qt::Key_Return);
     }},
};

/// An action of the host while it is open.
struct Deed {
    const char* name;
    void (*play)(Desk&);

    friend std::ostream& operator<<(std::ostream& out, const Deed& deed) { return out << deed.name; }
};

const Deed deeds[] = {
    {"DestroysTheWindow",
     [](Desk& desk) {
         // What waits for the next events must not use it.
         desk.window->docks().showRecordingFailures();
         desk.window->space().refreshLater();
         desk.window.reset();
     }},
    {"EndsTheDocument", [](Desk& desk) { desk.window->capture().startFromHere(desk.folder.file("a.scenario")); }},
    {"OpensAnotherSetUp",
     [](Desk& desk) { desk.window->open(desk.folder.file("other.json", R"({"drivers": [{"name": "B"}]})")); }},
    {"HandsOverAnotherList",
     [](Desk& desk) {
         const HostInstruments& drivers = desk.window->session().drivers();
         const DriverList list(drivers.begin(), drivers.empty() ? drivers.end() : drivers.begin() + 1);
         desk.window->document().drivers().setNumberOfDrivers(static_cast<std::int32_t>(list.size()));
         desk.window->document().drivers().setDrivers(list);
     }},
    {"Hides", [](Desk& desk) { desk.window->document().UserDocument_Hide(), desk.window->hide(); }},
    {"LocksThePage", [](Desk& desk) { desk.window->document().mode().setReadOnly(true); }},
};

class Ends : public testing::TestWithParam<Deed> {};

TEST_P(Ends, InTheMiddleOfWhatTheUserDoes)
{
    for (const Opening& opening : openings) {
        SCOPED_TRACE(opening.name);
        Desk desk;
        bool isPlayed = false;
        QTimer host;
        QObject::connect(&host, &QTimer::timeout, [&] {
            QWidget* const front =
                opening.isPopup && !isPlayed ? QApplication::activePopupWidget() : QApplication::activeModalWidget();
            if (opening.isQuestion && !isPlayed && !qobject_cast<QMessageBox*>(front))
                return;
            if (front && !std::exchange(isPlayed, true))
                GetParam().play(desk);
            else if (auto* dialog = qobject_cast<QDialog*>(front))
                dialog->reject();
        });
        host.start(0);
        opening.open(desk);
        for (int i = 0; i < 3 || QApplication::activeModalWidget(); ++i)
            QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(isPlayed);
        host.stop();
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        if (!desk.window)
            continue;
        // The window must still be usable.
        desk.window->document().mode().setReadOnly(false);
        desk.window->open(desk.folder.file("again.json", triggeredBench));
        desk.window->show();
        desk.activate();
        desk.page().moveFocus(&desk.page().txtDuration);
        desk.at<QLineEdit>(desk.page().txtDuration).selectAll();
        QTest::keyClick(&desk.at(desk.page().txtDuration), '7');
        EXPECT_EQ(desk.window->session().drivers().front()->held().timebase->duration, 7.0F);
    }
}

INSTANTIATE_TEST_SUITE_P(AHost, Ends, testing::ValuesIn(deeds),
                         [](const auto& deed) { return std::string(deed.param.name); });

} // namespace
} // namespace ko::test
