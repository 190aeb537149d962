#include "look/Look.h"
#include "host/docks/DriverLog.h"
#include "host/docks/FaultDialog.h"
#include "host/docks/InstrumentGallery.h"
#include "host/docks/Reports.h"
#include "host/properties/PropertiesDialog.h"
#include "host/setup/SetupTemplates.h"
#include "host/toolkit/HelpWindow.h"
#include "host/window/FrameTest.h"
#include "host/window/ReplayReport.h"

#include <QImage>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextBrowser>

namespace ko::test {
namespace {

/// The window and its dialogs, without what depends on the machine or the time.
class LookTest : public FrameTest {
protected:
    QTreeView& tree = *window.instruments().findChild<QTreeView*>();

    LookTest()
    {
        window.docks().health().now = [] { return DateTime{46347.5}; };
        window.space().freeSpace = [](const std::string&) { return 20e6; };
    }
    void openBench()
    {
        window.open(file("bench.json", R"({"drivers": [
            {"name": "Digitizer", "hasTriggerParameters": true, "failing": ["StopMode get"],
             "triggerLines": {"startMasterRank": 1, "startLinesAsMaster": [1, 2]},
             "timebase": {"samplePeriod": {"value": 0.5, "choices": [0.25, 0.5], "range": [0.1, 2], "keeps": "clamp"}},
             "groups": [{"name": "In", "channels": [{"address": "0:1", "name": "Crank", "unit": "V", "range": [-5, 5],
                 "signal": {"shape": "square", "frequency": 50, "amplitude": 2, "offset": 1, "phase": 0.5,
                            "noise": 0.1, "seed": 3},
                 "triggerParameters": [{"id": 2, "name": "Level", "type": "Float", "value": 1.5}]},
                 {"address": "0:2", "enabled": 0}]}]},
            {"name": "Scanner", "samplingMode": 2, "timebase": {}},
            {"name": "Device", "module": "none", "device": "d", "options": {"a": "1"}}]})"));
        show();
    }
    [[nodiscard]] InstrumentSettings settings(std::size_t instrument) const
    {
        return const_cast<LookTest*>(this)->window.session().drivers().at(instrument)->settings();
    }
};

TEST_F(LookTest, TheWindowAndItsDocks)
{
    window.setObjectName("window");
    for (const char* const recent : {"/x/one & two.json", "/y/folder/three.json"})
        window.files().recent().add(recent);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    window.resize(600, 700);
    show();
    Look start;
    start.take(window);
    for (const int entry : {hostText::reportsEntry, hostText::instruments, hostText::driverLog,
                            textNumber::record::dock, textNumber::history::history})
        action(hostText::viewMenu, entry).trigger();
    start.take(window);
    window.session().begin("empty");
    start.take(*window.findChild<QWidget*>("plus")->parentWidget());
    start.compare("start");

    openBench();
    auto& box = static_cast<QLineEdit&>(at(page().txtDuration));
    QTest::mouseClick(&box, Qt::LeftButton);
    box.selectAll();
    QTest::keyClicks(&box, "20");
    ASSERT_TRUE(page().moveFocus(&page().optAfter));
    tree.expandAll();
    window.instruments().select(1);
    auto& reports = *window.findChild<QTreeWidget*>();
    for (int i = 0; i < reports.topLevelItemCount(); ++i)
        for (const int role : {Qt::DisplayRole, Qt::ToolTipRole})
            reports.topLevelItem(i)->setData(0, role, "12:00:00");
    window.driverLog().findChild<QTreeView*>()->setColumnHidden(DriverLogModel::Time, true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.space().isVisible(); }));
    window.statusBar()->setObjectName("status");
    for (const char* const name :
         {"instruments", "driverLog", "reports", "historyDock", "failures", "space", "status"}) {
        auto& part = *window.findChild<QWidget*>(name);
        Look look;
        for (const QSize size : {QSize(1000, 700), QSize(1500, 1100)}) {
            window.resize(size);
            part.raise();
            look.take(part);
        }
        look.compare(name);
    }
}

TEST_F(LookTest, TheDialogs)
{
    openBench();
    const std::vector<ReplayDifference> differences{{3, "expect txtDuration text 10", "10", "6"},
                                                    {4, "click x", {}, {}}};
    const std::pair<const char*, std::function<QDialog*()>> dialogs[]{
        {"faults", [&] { return new FaultDialog(texts, *window.session().drivers().at(0), &window); }},
        {"gallery", [&] { return new InstrumentGallery(texts, instrumentKinds(), nullptr, &window); }},
        {"device", [&] { return new PropertiesDialog(texts, locale, settings(2), false, &window); }},
        {"report",
         [&] {
             return new ReplayReport(texts, {"a", differences, 5, true, ""}, &window);
         }},
        {"stopped report", [&] {
             return new ReplayReport(texts, {"a", {}, 5, false, "x"}, &window);
         }}};
    for (const auto& [section, make] : dialogs) {
        const std::unique_ptr<QDialog> dialog(make());
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        expectLook(*dialog, section);
    }
    const InDialog about([](QMessageBox& box) {
        box.setText("version");
        expectLook(box, "about");
        box.accept();
    });
    action(hostText::helpMenu, hostText::about).trigger();
}

TEST_F(LookTest, TheProperties)
{
    openBench();
    Look look;
    for (const auto& [instrument, isLocked] : {std::pair{0U, false}, {0U, true}, {1U, false}}) {
        PropertiesDialog dialog(texts, locale, settings(instrument), isLocked, &window);
        dialog.setObjectName("properties");
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        auto& tabs = *dialog.findChild<QTabWidget*>();
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.setCurrentIndex(tab);
            look.take(dialog);
        }
        dialog.resize(10, 10);
        look.take(dialog);
    }
    look.compare("properties");
}

TEST_F(LookTest, TheHelpWithAPictureThatIsTooWide)
{
    file("index.html", "<html><head><title>Help</title></head><body><h1>Help</h1><p>Words <a href=\"b.html\">there</a>"
                       "</p><img src=\"wide.png\"></body></html>");
    QImage wide(2000, 100, QImage::Format_Mono);
    wide.fill(0);
    wide.save(toQt(folder.file("wide.png")));
    HelpWindow help(texts, toQt(folder.path.string()), &window);
    help.turnTo(contentsTopic);
    help.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    expectLook(help, "help");
}

} // namespace
} // namespace ko::test
