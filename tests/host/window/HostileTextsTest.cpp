#include "FrameTest.h"
#include "host/docks/DriverLog.h"
#include "host/docks/InstrumentsView.h"
#include "host/toolkit/HelpWindow.h"
#include "interfaces/Timebase.h"
#include "widgets/support/PlainText.h"

#include <QAbstractItemView>
#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QTextBrowser>
#include <QTreeWidget>

namespace ko::test {
namespace {

/// Blocks a view that treats it as HTML, and shows place holders that are filled in twice.
const QString hostile = QStringLiteral("[*]<img src=\"file:///dev/zero\">%1%2%3%4 & <b>x</b>");

class HostileTextsTest : public FrameTest {
protected:
    void open()
    {
        QString json =
            R"({"title": "@", "drivers": [{"name": "@", "triggerLines": {"startMasterRank": 5, "scanMasterRank": 5}, "timebase":
            {"samplePeriod": {"value": 0.5, "choices": [0.5, 1]}, "startMode": 2},
            "groups": [{"name": "@", "channels": [{"address": "0:1:2", "name": "@", "triggerSource": true,
            "triggerParameters": [{"id": 2, "name": "@", "type": "Enum", "choices": ["@", "b"], "value": "@"},
                                  {"id": 3, "name": "@", "type": "StringReadOnly", "value": "@"}]}]}]},
            {"name": "@", "samplingMode": 2, "timebase": {}, "triggerLines": {}}]})";
        const QString quoted = QString(hostile).replace('"', "\\\"");
        window.open(file("[*]<i>&%1.json", json.replace('@', quoted).toUtf8().constData()));
        for (const int dock : {hostText::instruments, hostText::driverLog, hostText::reportsEntry})
            action(hostText::viewMenu, dock).trigger();
        show();
    }
    static void expectPlainTip(const QString& tip, const QObject& of)
    {
        EXPECT_FALSE(tip.contains("<img") || tip.contains("<i>")) << of.metaObject()->className() << tip.toStdString();
    }
    /// Counts the cells that show the hostile text.
    static int shownIn(const QAbstractItemModel& model, const QModelIndex& parent = {})
    {
        int shown = 0;
        for (const Qt::Orientation side : {Qt::Horizontal, Qt::Vertical})
            for (int i = 0; i < (side == Qt::Horizontal ? model.columnCount(parent) : model.rowCount(parent)); ++i) {
                shown += model.headerData(i, side).toString().contains(hostile) ? 1 : 0;
                for (const int role : {Qt::ToolTipRole, Qt::WhatsThisRole})
                    expectPlainTip(model.headerData(i, side, role).toString(), model);
            }
        for (int row = 0; row < model.rowCount(parent); ++row)
            for (int column = 0; column < model.columnCount(parent); ++column) {
                const QModelIndex cell = model.index(row, column, parent);
                for (const int role : {Qt::ToolTipRole, Qt::WhatsThisRole})
                    expectPlainTip(cell.data(role).toString(), model);
                shown += cell.data().toString().contains(hostile) ? 1 : 0;
                shown += model.hasChildren(cell) ? shownIn(model, cell) : 0;
            }
        return shown;
    }
    /// Checks all visible texts and returns how many contain the hostile text.
    static int walk()
    {
        int shown = 0;
        for (const QWidget* widget : QApplication::allWidgets()) {
            expectPlainTip(widget->toolTip(), *widget);
            expectPlainTip(widget->whatsThis(), *widget);
            for (const QAction* action : widget->actions())
                expectPlainTip(action->toolTip(), *action);
            shown += widget->isVisible() && widget->windowTitle().contains(plainTitle(hostile)) ? 1 : 0;
            if (const auto* label = qobject_cast<const QLabel*>(widget)) {
                EXPECT_TRUE(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()))
                    << label->text().toStdString();
                shown += label->text().contains(hostile) ? 1 : 0;
            }
            const auto* view = qobject_cast<const QAbstractItemView*>(widget);
            shown += view && view->model() ? shownIn(*view->model()) : 0;
        }
        return shown;
    }
    /// Calls `walk` while the dialog that `act` shows is open, and closes the dialog.
    template <class Act> void expectShownBy(const char* what, const Act& act)
    {
        const int before = walk();
        const Soon look([&] {
            EXPECT_GT(walk(), before) << what;
            QWidget* const top = QApplication::activeModalWidget();
            ASSERT_NE(top, nullptr) << what;
            top->close();
        });
        act();
        QCoreApplication::processEvents();
    }
    HostInstrument& driver() { return *window.session().drivers().front(); }
};

TEST_F(HostileTextsTest, EveryViewTipAndDialogShowsTheTextsOfFilesAndDriversLetterByLetter)
{
    open();
    driver().calls().fail({"SamplePeriod set", 77, hostile.toStdString()});
    page().cmbSampleRate.userChose(0);
    page().cmbSampleRate.userChose(1);
    QCoreApplication::processEvents();
    EXPECT_GT(walk(), 8);
    EXPECT_TRUE(window.windowTitle().startsWith("[*][*]<i>&%1.json[*]")) << window.windowTitle().toStdString();
    const QString failed = hostile + " (77)";
    const auto* reports = window.findChild<QDockWidget*>("reports")->findChild<QTreeWidget*>();
    const QTreeWidgetItem& report = *reports->topLevelItem(reports->topLevelItemCount() - 1);
    EXPECT_EQ(report.text(1), hostile);
    EXPECT_TRUE(report.text(2).endsWith(": " + failed));
    window.driverLog().model().flush();
    DriverLogModel& log = window.driverLog().model();
    EXPECT_EQ(log.index(log.rowCount() - 1, DriverLogModel::Result).data().toString(), "Failed: " + failed);
    EXPECT_EQ(log.index(log.rowCount() - 1, DriverLogModel::Instrument).data().toString(), hostile);
    const QString line = window.findChild<QWidget*>("failures")->findChild<QListWidget*>()->item(0)->text();
    EXPECT_TRUE(line.endsWith("  " + hostile + ": Sample period could not be set: " + failed)) << line.toStdString();

    driver().calls().healAll();
    expectShownBy("offers", [&] { page().cmdSampleRateOffers.userClicked(); });
    expectShownBy("trigger channel", [&] { page().cmdChannel.userClicked(); });
    expectShownBy("trigger lines", [&] { page().mnuTimebaseTriggerLines.userClicked(); });
    expectShownBy("message",
                  [&] { window.services().messageBox.show(hostile.toStdString(), "x", messageStyle::plain); });
    const Locale locale;
    BoxQuestions boxes(
        window, window.session(), [this](int number) { return window.text(number); }, locale);
    expectShownBy("refusal", [&] { boxes.tellNotOpened(hostile.toStdString()); });
    auto* tree = window.instruments().findChild<QAbstractItemView*>();
    tree->setCurrentIndex(tree->model()->index(0, 0));
    expectShownBy("faults", [&] { tree->findChild<QAction*>("faults")->trigger(); });
    expectShownBy("properties", [&] { tree->findChild<QAction*>("properties")->trigger(); });
    auto* recent = window.findChild<QMenu*>("recentFiles");
    emit recent->aboutToShow();
    EXPECT_TRUE(recent->actions().constFirst()->text().contains("[*]<i>&&%1.json"));
    walk();
}

TEST_F(HostileTextsTest, HelpShowsTheFilesOfItsFolderAlone)
{
    const std::string outside = file("outside.html", "<p>outside</p>");
    ASSERT_TRUE(QDir(folder.path()).mkdir("help"));
    file("help/index.html", "<p>contents</p>");
    file("help/page.html", "<p>page</p>");
    ASSERT_TRUE(QFile::link(toQt(outside), folder.filePath("help/link.html")));
    HelpWindow help([this](int number) { return window.text(number); }, folder.filePath("help"), nullptr);
    help.turnTo(0);
    for (const QString& url :
         {QString("../outside.html"), QString("link.html"), QString("file:///etc/passwd"), QString("http://127.0.0.1/"),
          QString("qrc:/help/index.html"), QString("data:text/html,x"), QString("file://host/help/index.html"),
          QString("."), QString("gone.html"), "file://" + toQt(outside)}) {
        help.browser().setSource(url);
        EXPECT_EQ(help.browser().toPlainText(), "contents") << url.toStdString();
        for (const int type : {QTextDocument::ImageResource, QTextDocument::StyleSheetResource})
            EXPECT_TRUE(help.browser().loadResource(type, url).isNull()) << url.toStdString();
    }
    help.browser().setSource(QUrl("page.html#place"));
    EXPECT_EQ(help.browser().toPlainText(), "page");
}

} // namespace
} // namespace ko::test
