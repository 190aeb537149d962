#include "host/recording_view/RecordDialog.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"
#include "host/window/FrameTest.h"

#include <QFileDialog>

namespace ko::test {
namespace {

/// The file dialogs and the questions about files.
class FileDialogsTest : public FrameTest {
protected:
    const std::string bench = file("bench.json", oneInstrument);
    QString shown; ///< of the dialog that was open

    void SetUp() override
    {
        window.open(bench);
        show();
    }
    /// Chooses this file in the dialog that `ask` opens; cancels it if the name is empty.
    template <class Ask> auto chosen(const QString& name, const Ask& ask)
    {
        const InDialog<QFileDialog> choose([this, name](QFileDialog& dialog) {
            shown = dialog.windowTitle() + u'|' + dialog.nameFilters().join(u';') + u'|' + dialog.defaultSuffix() +
                    (dialog.acceptMode() == QFileDialog::AcceptSave ? "|save|" : "|open|") +
                    QFileInfo(dialog.selectedFiles().value(0)).fileName();
            dialog.selectFile(toQt(folder.file(fromQt(name))));
            name.isEmpty() ? dialog.reject() : static_cast<QDialog&>(dialog).accept();
        });
        return ask();
    }
};

TEST_F(FileDialogsTest, EachOffersItsKindsOfFilesBesideTheSetUp)
{
    BoxQuestions boxes(window, window.session(), texts, locale);
    const struct {
        std::string (BoxQuestions::*ask)();
        const char *typed, *file, *shown;
    } cases[]{
        {&BoxQuestions::fileToOpen, "bench.json", "bench.json",
         "Open Set-up|Set-ups and recordings (*.json *.h5 *.h5~*);Set-up files (*.json);All files (*)||open|"},
        {&BoxQuestions::fileToSave, "other 1.2", "other 1.2.json",
         "Save Set-up|Set-up files (*.json);All files (*)|json|save|bench"},
        {&BoxQuestions::fileForSheet, "sheet", "sheet.html",
         "Export Set-up Sheet|Web pages (*.html);PDF files (*.pdf)|html|save|bench"},
    };
    for (const auto& it : cases) {
        EXPECT_EQ(chosen(it.typed, [&] { return (boxes.*it.ask)(); }), folder.file(it.file));
        EXPECT_TRUE(shown.startsWith(it.shown)) << shown.toStdString();
        EXPECT_EQ(chosen({}, [&] { return (boxes.*it.ask)(); }), "");
    }
}

TEST_F(FileDialogsTest, TheUserIsAskedInBoxesThatNameTheFile)
{
    BoxQuestions boxes(window, window.session(), texts, locale);
    // Presses the standard button or the one with the text; rejects the box that has neither.
    const auto press = [&](int text, QMessageBox::StandardButton standard = QMessageBox::Help) {
        return [this, text, standard](QMessageBox& box) {
            EXPECT_TRUE(box.text().contains("bench.json"));
            for (QAbstractButton* button : box.buttons())
                if (button->text() == window.text(text) || box.standardButton(button) == standard)
                    return button->click();
            box.reject();
        };
    };
    for (const auto& [button, result] : {std::pair{QMessageBox::Save, Unsaved::Save},
                                         {QMessageBox::Discard, Unsaved::Discard},
                                         {QMessageBox::Cancel, Unsaved::Cancel}}) {
        const InDialog answer(press(hostText::product, button));
        EXPECT_EQ(boxes.keepChanges(), result);
    }
    for (const auto& [text, result] : {std::pair{hostText::overwrite, Conflict::Overwrite},
                                       {hostText::saveAs, Conflict::SaveElsewhere},
                                       {hostText::reload, Conflict::Reload},
                                       {hostText::product, Conflict::Cancel}}) {
        const InDialog answer(press(text));
        EXPECT_EQ(boxes.settleConflict(), result);
    }
    for (const auto& [text, result] : {std::pair{hostText::reload, true}, {hostText::product, false}}) {
        const InDialog answer(press(text));
        EXPECT_EQ(boxes.reload(), result);
    }
    for (const auto& [text, result] : {std::pair{textNumber::recent::remove, true}, {hostText::product, false}}) {
        const InDialog answer(press(text));
        EXPECT_EQ(boxes.forget("bench.json"), result);
    }
}

TEST_F(FileDialogsTest, TheFileOfARecordingMayBeBrowsedAndOneThatExistsIsAskedAboutLater)
{
    RecordDialog dialog(&window, texts, locale, {folder.file("run.h5"), 1.0});
    auto* const browse = dialog.findChildren<QPushButton*>().constFirst();
    for (const char* const name : {"other 1.2", "bench.json", ""}) {
        chosen(name, [&] { browse->click(); });
        EXPECT_TRUE(shown.startsWith("Record|Recordings (*.h5)|h5|save|")) << shown.toStdString();
        EXPECT_EQ(dialog.file(), folder.file(*name == 'o' ? "other 1.2.h5" : "bench.json"));
    }
    EXPECT_TRUE(shown.endsWith("|bench.json")) << shown.toStdString();
}

TEST_F(FileDialogsTest, ACaptureAsksForItsFileAndForTheSetUpBesideIt)
{
    QAction& entry = window.capture().action();
    auto& sign = static_cast<QLabel&>(window.capture().sign());
    chosen({}, [&] { entry.trigger(); });
    EXPECT_TRUE(shown.startsWith("Capture Scenario|Scenarios (*.scenario);All files (*)|scenario|save|"));
    EXPECT_FALSE(entry.isChecked() || sign.isVisible());
    const std::string beside = folder.file("a.scenario.setup.json");
    writeWhole(beside, "kept");
    for (const bool overwrites : {false, true}) {
        QString question;
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, [&] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            question = box->text();
            for (QAbstractButton* const button : box->buttons())
                if (box->buttonRole(button) == (overwrites ? QMessageBox::DestructiveRole : QMessageBox::RejectRole))
                    return button->click();
        });
        answer.start(5);
        chosen("a", [&] { entry.trigger(); });
        EXPECT_TRUE(question.contains("a.scenario.setup.json")) << question.toStdString();
        EXPECT_EQ(entry.isChecked(), overwrites);
        EXPECT_EQ(sign.isVisible(), overwrites);
        EXPECT_EQ(readFile(beside) == "kept", !overwrites);
    }
    EXPECT_TRUE(sign.text().contains("a.scenario"));
    entry.trigger();
    EXPECT_FALSE(entry.isChecked() || sign.isVisible());
    EXPECT_THROW(window.capture().startFromHere("/nowhere/a.scenario"), InputError);
}

TEST_F(FileDialogsTest, OnlyPastingCapturesTheClipboard)
{
    const std::string scenario = folder.file("a.scenario");
    window.capture().startFromHere(scenario);
    page().moveFocus(&page().txtDuration);
    QGuiApplication::clipboard()->setText("77");
    for (const int entry : {hostText::paste, hostText::copy})
        action(hostText::editMenu, entry).trigger();
    const std::string lines = readFile(scenario);
    EXPECT_NE(lines.find("\nclipboard 77\ncommand " + std::to_string(command::paste) + "\n"), std::string::npos)
        << lines;
    EXPECT_EQ(lines.find("clipboard"), lines.rfind("clipboard")) << lines;
}

TEST_F(FileDialogsTest, AScenarioIsChosenPlayedAndReported)
{
    namespace replayText = textNumber::replay;
    window.replay().setPace(0);
    const auto of = [&](int text) { return window.text(text).arg("a.scenario"); };
    const struct {
        const char* line;
        QString heading, more;
        int rows;
    } cases[]{
        {"expect txtDuration text 10", of(replayText::done), {}, 0},
        {"expect txtDuration text 6", of(replayText::differs).arg(1), {}, 1},
        {"click txtDuration", of(replayText::stopped).arg(3), "the control \"txtDuration\" cannot be clicked", 0},
        {"terminate", window.text(replayText::refused), "a.scenario:3", -1},
    };
    for (const auto& it : cases) {
        file("a.scenario", std::string("setup bench.json\nshow\n") + it.line + "\n");
        QStringList labels;
        int rows = -1;
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || qobject_cast<QFileDialog*>(dialog))
                return;
            for (const QLabel* const label : dialog->findChildren<QLabel*>())
                labels << label->text();
            if (const auto* const list = dialog->findChild<QTreeWidget*>()) {
                rows = list->topLevelItemCount();
                EXPECT_EQ(list->topLevelItem(0)->text(0), "3");
            } else
                rows = qobject_cast<QMessageBox*>(dialog) ? -1 : 0;
            dialog->reject();
        });
        answer.start(5);
        chosen("a.scenario", [&] { window.replay().action().trigger(); });
        EXPECT_TRUE(labels.contains(it.heading)) << labels.join('|').toStdString();
        EXPECT_TRUE(labels.join('|').contains(it.more)) << labels.join('|').toStdString();
        EXPECT_EQ(rows, it.rows) << it.line;
    }
    EXPECT_EQ(fromQt(shown), "Run Scenario|Scenarios (*.scenario);All files (*)||open|");
    chosen({}, [&] { window.replay().action().trigger(); });
}

} // namespace
} // namespace ko::test
