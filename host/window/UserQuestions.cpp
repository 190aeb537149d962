#include "host/window/UserQuestions.h"

#include "host/sheet/SheetTexts.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/SaveDialog.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/Modal.h"
#include "widgets/support/ShownText.h"

#include <QFileInfo>
#include <QPushButton>

namespace ko {

BoxQuestions::BoxQuestions(QWidget& window, const SetupSession& session, Texts texts, const Locale& locale)
    : window_(window), session_(session), texts_(std::move(texts)), locale_(locale)
{
}

Unsaved BoxQuestions::keepChanges()
{
    Modal<PlainBox> box(QMessageBox::Question, texts_(hostText::product),
                        texts_(hostText::keepChanges).arg(toQt(session_.name())), texts_(hostText::changesGetLost),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window_);
    box->setDefaultButton(QMessageBox::Save);
    switch (box.wait()) {
    case QMessageBox::Save: return Unsaved::Save;
    case QMessageBox::Discard: return Unsaved::Discard;
    default: return Unsaved::Cancel;
    }
}

std::string BoxQuestions::fileToOpen()
{
    const QString folder = QFileInfo(toQt(session_.opened())).path();
    // Earlier recordings have ~ after their name.
    const QString all = QStringLiteral("%1 (*.json *.h5 *.h5~*)").arg(texts_(textNumber::record::setupsAndRecordings));
    Modal<QFileDialog> dialog(&window_, texts_(hostText::openTitle), folder, all + ";;" + filter());
    dialog->setFileMode(QFileDialog::ExistingFile);
    return dialog.isAccepted() ? fromQt(dialog->selectedFiles().value(0)) : std::string();
}

std::string BoxQuestions::fileToSave()
{
    const QFileInfo opened(toQt(session_.opened()));
    Modal<SaveDialog> dialog(&window_, texts_(hostText::saveTitle), opened.path(), filter(), QStringLiteral("json"));
    dialog->selectFile(session_.isOpen() ? opened.fileName() : QFileInfo(toQt(session_.name())).completeBaseName());
    return dialog.isAccepted() ? fromQt(dialog->selectedFiles().value(0)) : std::string();
}

std::string BoxQuestions::fileForSheet()
{
    const QFileInfo setup(toQt(session_.opened()));
    const QString pages = QStringLiteral("%1 (*.html)").arg(texts_(sheetText::htmlFiles));
    const QString pdf = QStringLiteral("%1 (*.pdf)").arg(texts_(sheetText::pdfFiles));
    Modal<SaveDialog> dialog(&window_, texts_(sheetText::exportTitle), setup.path(), pages + ";;" + pdf,
                             QStringLiteral("html"));
    onSignal(dialog.get(), &QFileDialog::filterSelected, dialog.get(), [&](const QString& filter) {
        dialog->setDefaultSuffix(filter == pdf ? QStringLiteral("pdf") : QStringLiteral("html"));
    });
    dialog->selectFile(setup.completeBaseName());
    return dialog.isAccepted() ? fromQt(dialog->selectedFiles().value(0)) : std::string();
}

Modal<PlainBox> BoxQuestions::conflictBox(const QString& question)
{
    return Modal<PlainBox>(QMessageBox::Warning, texts_(hostText::product),
                           texts_(hostText::changedOnDisk).arg(toQt(session_.name())), question, QMessageBox::Cancel,
                           &window_);
}

Conflict BoxQuestions::settleConflict()
{
    Modal<PlainBox> box = conflictBox(texts_(hostText::conflictHint));
    const auto* const overwrite = box->addButton(texts_(hostText::overwrite), QMessageBox::DestructiveRole);
    const auto* const elsewhere = box->addButton(texts_(hostText::saveAs), QMessageBox::AcceptRole);
    const auto* const reload = box->addButton(texts_(hostText::reload), QMessageBox::DestructiveRole);
    box->setDefaultButton(QMessageBox::Cancel);
    const auto* const answer = box.answer();
    if (answer == overwrite)
        return Conflict::Overwrite;
    if (answer == elsewhere)
        return Conflict::SaveElsewhere;
    return answer == reload ? Conflict::Reload : Conflict::Cancel;
}

bool BoxQuestions::reload()
{
    Modal<PlainBox> box = conflictBox(texts_(hostText::reloadQuestion));
    QPushButton* const reload = box->addButton(texts_(hostText::reload), QMessageBox::AcceptRole);
    box->setDefaultButton(reload);
    return box.answer() == reload;
}

bool BoxQuestions::forget(const std::string& file)
{
    Modal<PlainBox> box(QMessageBox::Question, texts_(hostText::openTitle),
                        texts_(textNumber::recent::missing).arg(toQt(file)), texts_(textNumber::recent::removeQuestion),
                        QMessageBox::Cancel, &window_);
    QPushButton* const remove = box->addButton(texts_(textNumber::recent::remove), QMessageBox::AcceptRole);
    box->setDefaultButton(remove);
    return box.answer() == remove;
}

PastStart BoxQuestions::pastStart(const QString& time, const QString& tomorrow)
{
    return askPastStart(window_, texts_, time, tomorrow);
}

std::string BoxQuestions::fileToRecord(const RecordOffer& offer)
{
    return askFileToRecord(window_, texts_, locale_, offer);
}

bool BoxQuestions::stopRecording()
{
    return askToStop(window_, texts_);
}

void BoxQuestions::tellNotRecorded(const std::string& reason)
{
    refuse(textNumber::record::title, textNumber::record::notBegun, reason);
}

Recovery BoxQuestions::restoreCopy(const std::string& setup, const QDateTime& time)
{
    namespace autosave = textNumber::autosave;
    const QString when = QLocale().toString(time, QLocale::ShortFormat);
    Modal<PlainBox> box(QMessageBox::Question, texts_(hostText::product),
                        texts_(autosave::found).arg(toShown(setup), when), texts_(autosave::question),
                        QMessageBox::NoButton, &window_);
    QPushButton* const restore = box->addButton(texts_(autosave::restore), QMessageBox::AcceptRole);
    const auto* const discard = box->addButton(texts_(autosave::discard), QMessageBox::DestructiveRole);
    box->setEscapeButton(box->addButton(texts_(autosave::later), QMessageBox::RejectRole));
    box->setDefaultButton(restore);
    const auto* const answer = box.answer();
    if (answer == restore)
        return Recovery::Restore;
    return answer == discard ? Recovery::Discard : Recovery::Later;
}

void BoxQuestions::tellDamagedCopy(const std::string& file, const std::string& reason)
{
    Modal<PlainBox>(QMessageBox::Warning, texts_(hostText::product),
                    texts_(textNumber::autosave::damaged).arg(toShown(file)), toShown(reason), QMessageBox::Ok,
                    &window_)
        .wait();
}

QString BoxQuestions::filter() const
{
    return QStringLiteral("%1 (*.json);;%2 (*)").arg(texts_(hostText::setupFiles), texts_(hostText::allFiles));
}

void BoxQuestions::tellNotSaved(const std::string& reason)
{
    refuse(hostText::saveTitle, hostText::notSaved, reason);
}

void BoxQuestions::tellNotOpened(const std::string& reason)
{
    refuse(hostText::openTitle, hostText::notOpened, reason);
}

void BoxQuestions::refuse(int title, int text, const std::string& reason)
{
    Modal<PlainBox>(QMessageBox::Warning, texts_(title), texts_(text), toQt(reason), QMessageBox::Ok, &window_).wait();
}

} // namespace ko
