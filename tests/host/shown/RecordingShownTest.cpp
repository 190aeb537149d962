#include "host/recording/Moments.h"
#include "host/recording_view/RecordDialog.h"
#include "host/recording_view/RecordQuestions.h"
#include "host/recording_view/RecordingView.h"
#include "host/recording_view/RunTexts.h"
#include "host/toolkit/SizeText.h"
#include "host/window/FrameTest.h"
#include "host/window/RecordStart.h"
#include "look/Look.h"

#include <QFileInfo>

namespace ko::test {
namespace {

/// What the window shows and asks about recordings, apart from any.
class RecordingShownTest : public FrameTest {
protected:
    Locale german;

    RecordingShownTest()
    {
        german.decimalSeparator = ",";
        german.digitGroupSeparator = ".";
    }
    static RecordingProgress progressIn(RunState state)
    {
        RecordingProgress progress;
        progress.state = state;
        progress.instruments.resize(2);
        InstrumentProgress& fast = progress.instruments[0];
        fast.samples = 1000;
        fast.planned = 4000;
        fast.bytes = 2e6;
        fast.lost = 3;
        fast.period = 0.001;
        fast.startOffset = 0.5;
        InstrumentProgress& slow = progress.instruments[1];
        slow.samples = 100;
        slow.planned = 3700;
        slow.bytes = 1024;
        slow.lost = 40;
        slow.period = 1.0;
        return progress;
    }
    /// Presses a button of the box that `ask` opens, by its place, or Escape if it is negative.
    template <class Ask> auto answered(int place, std::string& shown, const Ask& ask)
    {
        const InDialog press([&](QMessageBox& box) {
            shown = fromQt(box.text() + u'|' + box.informativeText());
            QList<QAbstractButton*> buttons = box.buttons();
            std::sort(buttons.begin(), buttons.end(), [](auto* a, auto* b) { return a->text() < b->text(); });
            for (const QAbstractButton* const button : buttons)
                shown += "|" + fromQt(button->text()) + (button == box.defaultButton() ? "*" : "");
            place < 0 ? QTest::keyClick(&box, Qt::Key_Escape) : buttons.at(place)->click();
        });
        return ask();
    }
};

TEST_F(RecordingShownTest, TimesAndSizesHaveTheUnitThatReadsBest)
{
    const std::pair<double, const char*> spans[]{{0, "0 s"},           {0.19, "0,1 s"},     {59.99, "59,9 s"},
                                                 {60, "0:01:00"},      {3661.9, "1:01:01"}, {35999.9, "9:59:59"},
                                                 {360000, "100:00:00"}};
    for (const auto& [seconds, text] : spans)
        EXPECT_EQ(fromQt(spanText(seconds, texts, german)), text);
    const std::pair<double, const char*> sizes[]{
        {0, "0 bytes"},          {1024, "1024 bytes"},         {1025, "1 KB"},
        {1536, "1,5 KB"},        {1048576, "1024 KB"},         {1048577, "1 MB"},
        {1073741824, "1024 MB"}, {1.5 * 1073741824, "1,5 GB"}, {2e12, "1862,65 GB"}};
    for (const auto& [bytes, text] : sizes)
        EXPECT_EQ(fromQt(sizeText(bytes, texts, german)), text);
}

TEST_F(RecordingShownTest, ARunIsShownByItsState)
{
    RecordingPlan plan;
    plan.startTime = {46347.5};
    const Moment now = momentOf({46347.5 - 0.5 / 24});
    const char* const details = "1.100 samples, 1,91 MB, 19,54 KB per second, 1:00:00 to go, 43 lost";
    const struct {
        RunState state;
        const char *text, *details;
        double share;
    } cases[]{{RunState::WaitingForTime, "Waiting for the start at 11/21/2026 12:00:00 PM, 0:30:00 to go", "", -1},
              {RunState::WaitingForTrigger, "Waiting for the trigger", "", -1},
              {RunState::Recording, "Recording, 0:01:40 of 1:01:40", details, 100.0 / 3700},
              {RunState::Finishing, "Finishing the recording", details, 100.0 / 3700}};
    for (const auto& it : cases) {
        const RunText shown = runText(progressIn(it.state), plan, now, texts, german);
        EXPECT_EQ(fromQt(shown.state), it.text);
        EXPECT_EQ(fromQt(shown.details), it.details);
        EXPECT_DOUBLE_EQ(shown.share, it.share);
    }
    RecordingProgress late = progressIn(RunState::Recording);
    late.instruments[0].startOffset = 5000;
    EXPECT_EQ(fromQt(runText(late, plan, now, texts, german).state), "Recording, 1:23:21 of 1:23:24");
    late.instruments[0].samples = late.instruments[0].planned;
    EXPECT_TRUE(runText(late, plan, now, texts, german).details.contains(", 0 s to go, "));
    late.instruments.clear();
    EXPECT_EQ(runText(late, plan, now, texts, german).share, 1.0);
}

TEST_F(RecordingShownTest, TheDockShowsARunThenItsSummaryOrANote)
{
    RecordingView view(texts, german, &window);
    view.resize(600, 300);
    show();
    view.show();
    Look look;
    look.take(view);
    view.showRun({"Recording, 1 s", "some", 0.5});
    EXPECT_EQ(view.accessibleDescription(), "Recording, 1 s");
    look.take(view);
    view.showRun({"Recording, 2 s", {}, 0.0});
    EXPECT_EQ(view.accessibleDescription(), "Recording, 1 s") << "only another state is announced";
    look.take(view);

    HeldRecording held;
    held.instruments.resize(6);
    HeldInstrument& first = held.instruments[0];
    first.name = "A";
    first.lost = 1234;
    first.samples = 5120;
    first.bytes = 2048;
    first.promised = 5000;
    const std::pair<const char*, const char*> ends[]{{"complete", "The recording is complete."},
                                                     {"stopped", "The recording was stopped early."},
                                                     {"failed", "The recording has failed."},
                                                     {"recording", "The recording was not finished."}};
    for (const auto& [end, text] : ends) {
        held.state = end;
        view.showEnd("/x/run.h5", held, "reason");
        EXPECT_EQ(fromQt(view.stateText()), text);
        EXPECT_EQ(fromQt(view.accessibleDescription()), text);
    }
    look.take(view);
    EXPECT_FALSE(view.summary().item(0, 0)->flags().testFlag(Qt::ItemIsEditable));
    held.instruments.resize(1);
    view.showEnd("/x/run.h5", held, {});
    look.take(view);
    look.compare("recording");
}

TEST_F(RecordingShownTest, EachAnswerToAQuestionAboutARecordingCountsAsWhatItSays)
{
    std::string shown;
    const std::pair<int, PastStart> starts[]{
        {0, PastStart::Cancel}, {1, PastStart::Now}, {2, PastStart::Tomorrow}, {-1, PastStart::Cancel}};
    for (const auto& [place, answer] : starts)
        EXPECT_EQ(answered(place, shown, [&] { return askPastStart(window, texts, "8:00", "9:00"); }), answer);
    EXPECT_EQ(shown, "The start time 8:00 is past.|The setting of the page is not changed."
                     "|Cancel|Start &Now*|Start &Tomorrow, 9:00");
    for (const auto& [place, answer] : {std::pair{0, false}, {1, true}, {-1, false}})
        EXPECT_EQ(answered(place, shown, [&] { return askToStop(window, texts); }), answer);
    EXPECT_EQ(shown, "A recording is in progress.|Stop it? What has been recorded is kept.|Cancel*|Stop");
}

TEST_F(RecordingShownTest, TheDialogOffersAFileAndComparesTheSpace)
{
    const auto make = [&](double bytes) {
        return std::make_unique<RecordDialog>(&window, texts, german, RecordOffer{folder.file("a.b.h5"), bytes});
    };
    auto dialog = make(1e15);
    dialog->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    auto* const name = dialog->findChild<QLineEdit*>();
    QPushButton* record = nullptr;
    for (QPushButton* const button : dialog->findChildren<QPushButton*>())
        record = button->text() == "&Record" ? button : record;
    ASSERT_NE(record, nullptr);
    EXPECT_TRUE(record->isDefault());
    EXPECT_EQ(name->selectedText(), "a.b");
    const auto shows = [&](const char* text, bool isProblem) {
        return QTest::qWaitFor([&] {
            bool isShown = false, hasSign = false;
            for (const QLabel* const label : dialog->findChildren<QLabel*>()) {
                isShown = isShown || label->text().contains(text);
                hasSign = hasSign || !label->pixmap().isNull();
            }
            return isShown && hasSign == isProblem;
        });
    };
    EXPECT_TRUE(shows("931322,57 GB needed, ", true));
    name->setText("/nowhere/at/all.h5");
    EXPECT_TRUE(shows("931322,57 GB needed", false)) << "what is free is not known";
    EXPECT_GT(name->width(), name->fontMetrics().horizontalAdvance(toQt(folder.file("a.b.h5"))));
    name->setMinimumWidth(350);
    dialog->adjustSize();
    expectLook(*dialog, "record");
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_TRUE(shows("/nowhere/at does not exist", true));
    const std::pair<const char*, const char*> files[]{
        {" /x/run ", "/x/run.h5"}, {"/x/run.hdf", "/x/run.hdf"}, {"  ", ""}};
    for (const auto& [typed, file] : files) {
        name->setText(typed);
        EXPECT_EQ(dialog->file(), file);
        EXPECT_EQ(record->isEnabled(), *file != '\0');
    }
    dialog->accept();
    EXPECT_TRUE(dialog->isVisible()) << "without a name";
    const std::string taken = file("taken.h5", "x");
    name->setText(toQt(folder.file("taken")));
    std::string question;
    answered(-1, question, [&] { dialog->accept(); });
    EXPECT_EQ(question, "taken.h5 already exists. Replace it?|The present file is kept as taken.h5~."
                        "|Cancel*|Re&place");
    EXPECT_TRUE(dialog->isVisible()) << "no file is replaced without a question";
    answered(1, question, [&] { dialog->accept(); });
    EXPECT_FALSE(dialog->isVisible());
    dialog = make(1024);
    dialog->show();
    EXPECT_TRUE(shows("1024 bytes needed, ", false));
    dialog->accept();
    EXPECT_FALSE(dialog->isVisible()) << "a new file is no question";
}

TEST_F(RecordingShownTest, TheFileOfferedHasTheTitleAndTheTimeAndIsNew)
{
    const auto offered = [&](const char* title) {
        open(std::string(R"({"title": ")") + title + R"(", "drivers": []})");
        return QFileInfo(toQt(suggestedFile(window.session(), {46347.5}))).fileName().toStdString();
    };
    EXPECT_EQ(offered("a/b:c*?"), "a-b-c-- 2026-11-21 120000.h5");
    EXPECT_EQ(offered(""), "bench 2026-11-21 120000.h5");
    EXPECT_EQ(QFileInfo(toQt(suggestedFile(window.session(), {46347.5}))).path(), toQt(folder.path.string()));
    EXPECT_EQ(offered(std::string(400, 'x').c_str()).size(), 150U + 21U);
    file("T 2026-11-21 120000.h5", "");
    EXPECT_EQ(offered("T"), "T 2026-11-21 120000 (2).h5");
    file("T 2026-11-21 120000 (2).h5", "");
    EXPECT_EQ(offered("T"), "T 2026-11-21 120000 (3).h5");
    window.session().begin("empty");
    EXPECT_TRUE(QFileInfo(toQt(suggestedFile(window.session(), {46347.5}))).dir().exists());
}

} // namespace
} // namespace ko::test
