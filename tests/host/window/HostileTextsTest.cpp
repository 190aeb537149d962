#include "FrameTest.h"
#include "HostileViews.h"
#include "host/chart/ChartPanel.h"
#include "host/chart/Sines.h"
#include "host/docks/DriverLog.h"
#include "host/docks/InstrumentGallery.h"
#include "host/recording_view/RecordDialog.h"
#include "look/Painted.h"

#include <QHelpEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QToolTip>

namespace ko::test {
namespace {

class HostileTexts : public FrameTest, public testing::WithParamInterface<Hostile> {
protected:
    const HostileViews views{GetParam()};
    const std::string text = fromQt(GetParam().text);
    /// The text as the name of a file.
    const std::string fileName = fromQt(GetParam().text.left(150).replace('/', '|')) + ".json";

    int walk() const { return views.walk(); }
    void open()
    {
        QString json =
            R"({"title": @, "clock": "11/21/2026 9:30:00 AM", "drivers": [{"name": @, "triggerLines": {"startMasterRank": 5, "scanMasterRank": 5}, "timebase":
            {"duration": 1, "samplePeriod": {"value": 0.5, "choices": [0.5, 1]}, "startMode": 2},
            "groups": [{"name": @, "channels": [{"address": "0:1:2", "name": @, "unit": @, "triggerSource": true,
            "triggerParameters": [{"id": 2, "name": @, "type": "Enum", "choices": [@, "b"], "value": @},
                                  {"id": 3, "name": @, "type": "StringReadOnly", "value": @}]}]}]},
            {"name": @, "samplingMode": 2, "timebase": {}, "triggerLines": {}}]})";
        const QByteArray quoted = QJsonDocument(QJsonArray{GetParam().text}).toJson(QJsonDocument::Compact);
        json.replace('@', quoted.mid(1, quoted.size() - 2));
        window.open(file(fileName, fromQt(json)));
        for (const int dock : {hostText::instruments, hostText::driverLog, hostText::reportsEntry})
            action(hostText::viewMenu, dock).trigger();
        show();
    }
    /// Calls `walk` while the dialog that `act` shows is open, and closes the dialog.
    template <class Act> void expectShownBy(const char* what, const Act& act)
    {
        SCOPED_TRACE(what);
        const int before = walk();
        const InDialog<QDialog> look([&](QDialog& dialog) {
            EXPECT_GT(walk(), before);
            dialog.close();
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
    QAbstractItemView& tree() { return *window.instruments().findChild<QAbstractItemView*>(); }
    void expectDocks();
    void expectDialogs();
    void expectBoxes();
    void expectRecordings();
    void expectChart();
};

void HostileTexts::expectDocks()
{
    EXPECT_GT(walk(), 4);
    expectMore("history and log", [&] {
        page().cmbSampleRate.userChose(1);
        window.instruments().model().setData(tree().model()->index(0, 0), GetParam().text + "2", Qt::EditRole);
        QCoreApplication::processEvents();
    });
    expectMore("reports, log and strip", [&] {
        driver().calls().fail({"SamplePeriod set", 77, text});
        page().cmbSampleRate.userChose(0);
        QTest::qWait(1);
    });
    driver().calls().healAll();
}

void HostileTexts::expectDialogs()
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
    RecordDialog record(&window, texts, locale, {"/nowhere" + fileName + "/x.h5", 1e15});
    record.show();
    record.accept();
    walk();
}

void HostileTexts::expectBoxes()
{
    BoxQuestions boxes(window, window.session(), texts, locale);
    expectShownBy("message", [&] { window.services().messageBox.show(text, "x", messageStyle::plain); });
    expectShownBy("title of a message", [&] { window.services().messageBox.show("x", text, messageStyle::plain); });
    expectShownBy("not opened", [&] { boxes.tellNotOpened(text); });
    expectShownBy("not saved", [&] { boxes.tellNotSaved(text); });
    expectShownBy("not recorded", [&] { boxes.tellNotRecorded(text); });
    expectShownBy("forget", [&] { boxes.forget(text); });
    expectShownBy("copy", [&] { boxes.restoreCopy(text, {}); });
    expectShownBy("damaged", [&] { boxes.tellDamagedCopy(text, text); });
    for (const auto& ask : std::initializer_list<std::function<void()>>{
             [&] { boxes.keepChanges(); }, [&] { boxes.settleConflict(); }, [&] { boxes.reload(); }}) {
        const InDialog look([this](QMessageBox& box) {
            walk();
            EXPECT_TRUE(box.text().contains(hostileBegin));
            box.close();
        });
        ask();
    }
}

void HostileTexts::expectRecordings()
{
    user.record = folder.file(fileName + ".h5");
    expectMore("recording", [&] {
        window.recording().record();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.recording().isActive(); }));
        EXPECT_TRUE(user.told.empty()) << user.told.substr(0, 500);
    });
    window.session().setChanged(false);
    window.files().open(toQt(user.record));
    walk();
    StripChart& chart = window.recording().chart().chart();
    EXPECT_EQ(views.shownIn(chart.latestValues(), HostileViews::Place::Lines, chart), 1);
}

void HostileTexts::expectChart()
{
    StripChart& chart = window.recording().chart().chart();
    const auto source = std::make_shared<Sines>(1, 0.001, 1000);
    source->described[0].instrumentName = text;
    ArmedChannel& channel = source->described[0].channel;
    channel.name = channel.address = channel.unit = text;
    source->now.markers = {{0.5, text.substr(0, Marker::textSize)}};
    chart.show(source, false);
    QStringList drawn = paintedBy(*chart.viewport()).words();
    for (const QString& word : drawn)
        views.expectShown(word, HostileViews::Place::Line, chart);
    EXPECT_EQ(drawn.filter(hostileBegin).size(), 4) << "name, unit, instrument and marker";
    const QPoint row(9, chart.viewport()->height() / 2);
    QHelpEvent event(QEvent::ToolTip, row, chart.viewport()->mapToGlobal(row));
    QApplication::sendEvent(chart.viewport(), &event);
    views.expectPlainTip(QToolTip::text(), chart);
    EXPECT_EQ(QToolTip::text().count(hostileBegin), 5) << "twice with the unit";
}

TEST_P(HostileTexts, AreShownPlainAndBoundedInEveryViewTipAndDialog)
{
    open();
    expectDocks();
    expectDialogs();
    expectBoxes();
    expectRecordings();
    expectChart();
    auto* recent = window.findChild<QMenu*>("recentFiles");
    Q_EMIT recent->aboutToShow();
    walk();
    EXPECT_TRUE(recent->actions().constFirst()->text().contains(hostileBegin));
    window.session().setChanged(false);
    window.files().close();
    walk();
    EXPECT_TRUE(window.start().isVisible());
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileTexts, testing::ValuesIn(hostiles),
                         [](const auto& of) { return std::string(of.param.name); });

} // namespace
} // namespace ko::test
