#include "Openings.h"

#include <QContextMenuEvent>
#include <QFileDialog>
#include <QListView>

namespace ko::test {
namespace {

void send(QWidget& widget, QEvent::Type type)
{
    const QPointF place(4, 4);
    QMouseEvent event(type, place, widget.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &event);
}

const Opening all[] = {
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

} // namespace

std::span<const Opening> openings()
{
    return all;
}

} // namespace ko::test
