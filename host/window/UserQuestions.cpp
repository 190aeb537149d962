#include "host/window/UserQuestions.h"

#include "host/support/HostTexts.h"
#include "widgets/support/PlainText.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPushButton>

namespace ko {

BoxQuestions::BoxQuestions(QWidget& window, const SetupSession& session, Texts texts)
    : window_(window), session_(session), texts_(std::move(texts))
{
}

Unsaved BoxQuestions::keepChanges()
{
    PlainBox box(QMessageBox::Question, texts_(hostText::product),
                 texts_(hostText::keepChanges).arg(toQt(session_.name())), texts_(hostText::changesGetLost),
                 QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window_);
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save: return Unsaved::Save;
    case QMessageBox::Discard: return Unsaved::Discard;
    default: return Unsaved::Cancel;
    }
}

std::string BoxQuestions::fileToOpen()
{
    const QString folder = QFileInfo(toQt(session_.file())).path();
    return fromQt(QFileDialog::getOpenFileName(&window_, texts_(hostText::openTitle), folder, filter()));
}

std::string BoxQuestions::fileToSave()
{
    QFileDialog dialog(&window_, texts_(hostText::saveTitle), QFileInfo(toQt(session_.file())).path(), filter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("json"));
    dialog.selectFile(toQt(session_.name()));
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return fromQt(dialog.selectedFiles().value(0));
}

std::unique_ptr<QMessageBox> BoxQuestions::conflictBox(const QString& question)
{
    return std::make_unique<PlainBox>(QMessageBox::Warning, texts_(hostText::product),
                                      texts_(hostText::changedOnDisk).arg(toQt(session_.name())), question,
                                      QMessageBox::Cancel, &window_);
}

Conflict BoxQuestions::settleConflict()
{
    const auto box = conflictBox(texts_(hostText::conflictHint));
    const auto* const overwrite = box->addButton(texts_(hostText::overwrite), QMessageBox::DestructiveRole);
    const auto* const elsewhere = box->addButton(texts_(hostText::saveAs), QMessageBox::AcceptRole);
    const auto* const reload = box->addButton(texts_(hostText::reload), QMessageBox::DestructiveRole);
    box->setDefaultButton(QMessageBox::Cancel);
    box->exec();
    if (box->clickedButton() == overwrite)
        return Conflict::Overwrite;
    if (box->clickedButton() == elsewhere)
        return Conflict::SaveElsewhere;
    return box->clickedButton() == reload ? Conflict::Reload : Conflict::Cancel;
}

bool BoxQuestions::reload()
{
    const auto box = conflictBox(texts_(hostText::reloadQuestion));
    QPushButton* const reload = box->addButton(texts_(hostText::reload), QMessageBox::AcceptRole);
    box->setDefaultButton(reload);
    box->exec();
    return box->clickedButton() == reload;
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
    PlainBox(QMessageBox::Warning, texts_(title), texts_(text), toQt(reason), QMessageBox::Ok, &window_).exec();
}

} // namespace ko
