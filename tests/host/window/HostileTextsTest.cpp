#include "FrameTest.h"
#include "host/chart/ChartPanel.h"
#include "host/docks/DriverLog.h"
#include "host/docks/InstrumentGallery.h"
#include "host/docks/InstrumentsView.h"
#include "host/docks/Reports.h"
#include "host/recording_view/RecordDialog.h"
#include "host/recording_view/RecordingView.h"
#include "host/setup/InstrumentEdits.h"
#include "host/toolkit/HelpWindow.h"
#include "interfaces/Timebase.h"
#include "widgets/support/PlainText.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTextBrowser>
#include <QTreeWidget>
#include <set>

namespace ko::test {
namespace {

/// A text that a file or a driver gives. Each begins with the same words.
struct Hostile {
    const char* name;
    QString text;
    bool isVerbatim; ///< it is shown letter by letter
};

const QString begin = QStringLiteral("A word");

/// Blocks a view that treats it as HTML, and shows place holders that are filled in twice.
const Hostile hostiles[]{
    {"Html", begin + "[*]<img src=\"file:///dev/zero\">%1%2%3%4 & <b>x</b>", true},
    {"Lines", begin + "\nof\r\na\tfew\u2028lines\u2029" + QString("and more\n").repeated(50), false},
    {"Directions", begin + QStringLiteral("\u202E\u2066 drow A\u2069"), false},
    {"Endless", begin + QString("x").repeated(1 << 20), false}};

/// What a text is shown in.
enum class Place { Line, Cell, Lines };

class HostileTextsTest : public FrameTest {
protected:
    void open()
    {
        QString json =
            R"({"title": @, "clock": "11/21/2026 9:30:00 AM", "drivers": [{"name": @, "triggerLines": {"startMasterRank": 5, "scanMasterRank": 5}, "timebase":
            {"duration": 1, "samplePeriod": {"value": 0.5, "choices": [0.5, 1]}, "startMode": 2},
            "groups": [{"name": @, "channels": [{"address": "0:1:2", "name": @, "unit": @, "triggerSource": true,
            "triggerParameters": [{"id": 2, "name": @, "type": "Enum", "choices": [@, "b"], "value": @},
                                  {"id": 3, "name": @, "type": "StringReadOnly", "value": @}]}]}]},
            {"name": @, "samplingMode": 2, "timebase": {}, "triggerLines": {}}]})";
        const QByteArray quoted = QJsonDocument(QJsonArray{hostile().text}).toJson(QJsonDocument::Compact);
        json.replace('@', quoted.mid(1, quoted.size() - 2));
        window.open(file(fromQt(fileName()).c_str(), json.toUtf8().constData()));
        for (const int dock : {hostText::instruments, hostText::driverLog, hostText::reportsEntry})
            action(hostText::viewMenu, dock).trigger();
        show();
    }
    static const Hostile& hostile() { return *current; }
    static std::string text() { return fromQt(hostile().text); }
    /// The text as the name of a file.
    static QString fileName() { return hostile().text.left(150).replace('/', '|') + ".json"; }

    static void expectShown(const QString& text, Place place, const QObject& of)
    {
        const auto isTurning = [](QChar c) {
            return (c >= u'\u202A' && c <= u'\u202E') || (c >= u'\u2066' && c <= u'\u2069');
        };
        const auto isBreak = [](QChar c) { return c == u'\n' || c == u'\r' || c == u'\u2028' || c == u'\u2029'; };
        const bool isBroken = place == Place::Line && std::any_of(text.begin(), text.end(), isBreak);
        const bool isLong = text.size() > (text.startsWith("<p>") ? 50'000 : 5'000) ||
                            text.count('\n') > (place == Place::Cell ? 1 : 70);
        if (isBroken || isLong || std::any_of(text.begin(), text.end(), isTurning))
            complain(fromQt(text.left(100)), of);
    }
    /// Once for each object.
    static void complain(const std::string& what, const QObject& of)
    {
        static std::set<const QObject*> known;
        if (known.insert(&of).second)
            ADD_FAILURE() << of.metaObject()->className() << " " << fromQt(of.objectName()) << ": " << what;
    }
    static void expectPlainTip(const QString& tip, const QObject& of)
    {
        if (tip.contains("<img") || tip.contains("<i>"))
            complain(fromQt(tip), of);
        expectShown(tip, Place::Lines, of);
    }
    static bool isFound(const QString& text) { return text.contains(hostile().isVerbatim ? hostile().text : begin); }
    static int shownIn(const QString& text, Place place, const QObject& of)
    {
        expectShown(text, place, of);
        return isFound(text) ? 1 : 0;
    }
    static int shownInHeader(const QAbstractItemModel& model, Qt::Orientation side, int count)
    {
        int shown = 0;
        for (int i = 0; i < count; ++i) {
            shown += shownIn(model.headerData(i, side).toString(), Place::Cell, model);
            for (const int role : {Qt::ToolTipRole, Qt::WhatsThisRole})
                expectPlainTip(model.headerData(i, side, role).toString(), model);
        }
        return shown;
    }
    /// Counts the cells that show the hostile text.
    static int shownIn(const QAbstractItemView& view, const QModelIndex& parent = {})
    {
        const QAbstractItemModel& model = *view.model();
        int shown = shownInHeader(model, Qt::Horizontal, model.columnCount(parent)) +
                    shownInHeader(model, Qt::Vertical, model.rowCount(parent));
        for (int row = 0; row < model.rowCount(parent); ++row)
            for (int column = 0; column < model.columnCount(parent); ++column) {
                const QModelIndex cell = model.index(row, column, parent);
                const auto* delegate = qobject_cast<QStyledItemDelegate*>(view.itemDelegateForIndex(cell));
                const QString text = delegate ? delegate->displayText(cell.data(), QLocale()) : cell.data().toString();
                shown += shownIn(text, Place::Cell, model);
                for (const int role : {Qt::ToolTipRole, Qt::WhatsThisRole})
                    expectPlainTip(cell.data(role).toString(), model);
                shown += model.hasChildren(cell) ? shownIn(view, cell) : 0;
            }
        return shown;
    }
    /// Checks all texts that are not edited and returns how many contain the hostile text.
    static int walk()
    {
        int shown = 0;
        for (const QWidget* widget : QApplication::allWidgets()) {
            for (const QString& tip : {widget->toolTip(), widget->whatsThis()})
                expectPlainTip(tip, *widget);
            for (const QString& text : {widget->statusTip(), widget->accessibleName(), widget->accessibleDescription()})
                expectShown(text, Place::Lines, *widget);
            for (const QAction* action : widget->actions()) {
                expectPlainTip(action->toolTip(), *action);
                expectShown(action->text(), Place::Line, *action);
            }
            expectShown(widget->windowTitle(), Place::Line, *widget);
            shown += widget->isVisible() && widget->windowTitle().contains(begin) ? 1 : 0;
            if (widget->isVisible() && std::min(widget->minimumSizeHint().width(), widget->width()) > 1500 &&
                widget->minimumWidth() == 0)
                complain("too wide", *widget);
            if (const auto* label = qobject_cast<const QLabel*>(widget)) {
                EXPECT_TRUE(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()))
                    << label->text().left(300).toStdString();
                shown += shownIn(label->text(), Place::Lines, *widget);
            }
            if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
                shown += shownIn(button->text(), Place::Line, *widget);
            const auto* view = qobject_cast<const QAbstractItemView*>(widget);
            const bool isHeader = qobject_cast<const QHeaderView*>(widget) != nullptr;
            shown += view && view->model() && !isHeader ? shownIn(*view) : 0;
        }
        return shown;
    }
    /// Calls `walk` while the dialog that `act` shows is open, and closes the dialog.
    template <class Act> void expectShownBy(const char* what, const Act& act)
    {
        SCOPED_TRACE(what);
        const int before = walk();
        const Soon look([&] {
            EXPECT_GT(walk(), before);
            QWidget* const top = QApplication::activeModalWidget();
            ASSERT_NE(top, nullptr);
            top->close();
        });
        act();
        QCoreApplication::processEvents();
    }
    /// Checks that `act` makes the window show the text in more places.
    template <class Act> void expectMore(const char* what, const Act& act)
    {
        SCOPED_TRACE(what);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const int before = walk();
        act();
        QCoreApplication::processEvents();
        window.driverLog().model().flush();
        EXPECT_GT(walk(), before);
    }
    HostInstrument& driver() { return *window.session().drivers().front(); }
    QAbstractItemView& tree() { return *window.instruments().findChild<QAbstractItemView*>(); }
    void expectDocks();
    void expectDialogs();
    void expectBoxes();
    void expectRecordings();

    inline static const Hostile* current = nullptr;
};

void HostileTextsTest::expectDocks()
{
    EXPECT_GT(walk(), 4);
    expectMore("history and log", [&] {
        page().cmbSampleRate.userChose(1);
        window.instruments().model().setData(tree().model()->index(0, 0), hostile().text + "2", Qt::EditRole);
        QCoreApplication::processEvents();
    });
    expectMore("reports, log and strip", [&] {
        driver().calls().fail({"SamplePeriod set", 77, text()});
        page().cmbSampleRate.userChose(0);
        QTest::qWait(1);
    });
    driver().calls().healAll();
}

void HostileTextsTest::expectDialogs()
{
    expectShownBy("offers", [&] { page().cmdSampleRateOffers.userClicked(); });
    expectShownBy("trigger channel", [&] { page().cmdChannel.userClicked(); });
    expectShownBy("trigger lines", [&] { page().mnuTimebaseTriggerLines.userClicked(); });
    tree().setCurrentIndex(tree().model()->index(0, 0));
    expectShownBy("faults", [&] { tree().findChild<QAction*>("faults")->trigger(); });
    expectShownBy("properties", [&] { tree().findChild<QAction*>("properties")->trigger(); });
    std::optional<InstrumentGallery> gallery;
    expectMore("gallery", [&] { gallery.emplace(texts, std::vector{driver().settings()}, nullptr, &window).show(); });
    gallery.reset();
    RecordDialog record(&window, texts, locale, {"/nowhere" + fromQt(fileName()) + "/x.h5", 1e15});
    record.show();
    record.accept();
    walk();
}

void HostileTextsTest::expectBoxes()
{
    BoxQuestions boxes(window, window.session(), texts, locale);
    expectShownBy("message", [&] { window.services().messageBox.show(text(), "x", messageStyle::plain); });
    expectShownBy("title of a message", [&] { window.services().messageBox.show("x", text(), messageStyle::plain); });
    expectShownBy("not opened", [&] { boxes.tellNotOpened(text()); });
    expectShownBy("not saved", [&] { boxes.tellNotSaved(text()); });
    expectShownBy("not recorded", [&] { boxes.tellNotRecorded(text()); });
    expectShownBy("forget", [&] { boxes.forget(text()); });
    expectShownBy("copy", [&] { boxes.restoreCopy(text(), {}); });
    expectShownBy("damaged", [&] { boxes.tellDamagedCopy(text(), text()); });
    for (const auto& ask : std::initializer_list<std::function<void()>>{
             [&] { boxes.keepChanges(); }, [&] { boxes.settleConflict(); }, [&] { boxes.reload(); }}) {
        const Soon look([] {
            walk();
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            EXPECT_TRUE(box->text().contains(begin));
            box->close();
        });
        ask();
    }
}

void HostileTextsTest::expectRecordings()
{
    user.record = fromQt(folder.filePath(fileName() + ".h5"));
    expectMore("recording", [&] {
        window.recording().record();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.recording().isActive(); }));
        EXPECT_TRUE(user.told.empty()) << user.told.substr(0, 500);
    });
    const StripChart& chart = window.recording().chart().chart();
    EXPECT_EQ(shownIn(chart.latestValues(), Place::Lines, chart), 1);
}

class HostileTexts : public HostileTextsTest, public testing::WithParamInterface<Hostile> {
    void SetUp() override { current = &GetParam(); }
};

TEST_P(HostileTexts, AreShownPlainAndBoundedInEveryViewTipAndDialog)
{
    open();
    expectDocks();
    expectDialogs();
    expectBoxes();
    expectRecordings();
    auto* recent = window.findChild<QMenu*>("recentFiles");
    emit recent->aboutToShow();
    walk();
    EXPECT_TRUE(recent->actions().constFirst()->text().contains(begin));
    window.session().setChanged(false);
    window.files().close();
    walk();
    EXPECT_TRUE(window.start().isVisible());
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileTexts, testing::ValuesIn(hostiles),
                         [](const auto& of) { return std::string(of.param.name); });

void PrintTo(const Hostile& of, std::ostream* out)
{
    *out << of.name;
}

TEST_F(HostileTextsTest, HelpShowsTheFilesOfItsFolderAlone)
{
    const std::string outside = file("outside.html", "<p>outside</p>");
    ASSERT_TRUE(QDir(folder.path()).mkdir("help"));
    file("help/index.html", "<p>contents</p>");
    file("help/page.html", "<p>page</p>");
    ASSERT_TRUE(QFile::link(toQt(outside), folder.filePath("help/link.html")));
    HelpWindow help(texts, folder.filePath("help"), nullptr);
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

TEST_F(HostileTextsTest, HelpTurnsItsPagesByLinksAndButtons)
{
    HelpWindow help(texts, QStringLiteral(KO_DEMO_FOLDER "/../help/en"), &window);
    help.turnTo(contentsTopic);
    help.show();
    QTextBrowser& browser = help.browser();
    const auto page = [&] {
        EXPECT_EQ(help.windowTitle(), browser.documentTitle());
        return browser.source().fileName();
    };
    const auto button = [&](int text) {
        for (QPushButton* const it : help.findChildren<QPushButton*>())
            if (it->text() == window.text(text))
                return it;
        throw std::out_of_range("no such button");
    };
    const auto states = [&] {
        return std::pair(button(hostText::back)->isEnabled(), button(hostText::forward)->isEnabled());
    };
    EXPECT_EQ(page(), "index.html");
    EXPECT_EQ(states(), std::pair(false, false));
    QTest::keyClick(&browser, Qt::Key_Tab);
    QTest::keyClick(&browser, Qt::Key_Return);
    EXPECT_EQ(page(), "page.html");
    EXPECT_EQ(states(), std::pair(true, false));
    button(hostText::back)->click();
    EXPECT_EQ(page(), "index.html");
    EXPECT_EQ(states(), std::pair(false, true));
    button(hostText::forward)->click();
    EXPECT_EQ(page(), "page.html");
    button(hostText::contents)->click();
    EXPECT_EQ(page(), "index.html");
    EXPECT_TRUE(button(hostText::closeHelp)->isDefault());
    button(hostText::closeHelp)->click();
    EXPECT_FALSE(help.isVisible());
    HelpWindow none(texts, "/nowhere", &window);
    none.turnTo(contentsTopic);
    EXPECT_TRUE(none.browser().toPlainText().contains("/nowhere/index.html"));
}

} // namespace
} // namespace ko::test
