#include "host/recording_view/RecordDialog.h"

#include "host/recording/RecordedFile.h"
#include "host/recording_view/SpaceGauge.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/Background.h"
#include "host/toolkit/SaveDialog.h"
#include "host/toolkit/SizeText.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

namespace ko {

namespace recordText = textNumber::record;

RecordDialog::RecordDialog(QWidget* parent, Texts texts, const Locale& locale, const RecordOffer& offer)
    : QDialog(parent), texts_(std::move(texts)), locale_(locale), bytes_(offer.bytes),
      file_(new QLineEdit(toQt(offer.file), this)), sign_(new PlainLabel(this)), space_(new PlainLabel(this))
{
    setWindowTitle(texts_(recordText::title));
    auto* const label = new PlainLabel(texts_(recordText::fileLabel), this);
    label->setBuddy(file_);
    auto* const browse = new QPushButton(texts_(recordText::browse), this);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    record_ = buttons->addButton(texts_(recordText::begin), QDialogButtonBox::AcceptRole);
    record_->setDefault(true);
    space_->setWordWrap(true);
    auto* const grid = new QGridLayout(this);
    grid->addWidget(label, 0, 0);
    grid->addWidget(file_, 0, 1);
    grid->addWidget(browse, 0, 2);
    auto* const line = new QHBoxLayout;
    line->addWidget(sign_);
    line->addWidget(space_, 1);
    grid->addLayout(line, 1, 1, 1, 2);
    grid->addWidget(buttons, 2, 0, 1, 3);
    const int letter = fontMetrics().averageCharWidth();
    file_->setMinimumWidth(
        std::clamp(fontMetrics().horizontalAdvance(file_->text()) + 4 * letter, 50 * letter, 90 * letter));
    // The name without its extension is what a user changes.
    file_->setSelection(static_cast<int>(file_->text().size() - QFileInfo(file_->text()).fileName().size()),
                        static_cast<int>(QFileInfo(file_->text()).completeBaseName().size()));
    onSignal(browse, &QPushButton::clicked, this, [this] { this->browse(); });
    onSignal(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    onSignal(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    onSignal(file_, &QLineEdit::textChanged, this, [this] { askForSpace(); });
    askForSpace();
}

std::string RecordDialog::file() const
{
    const QString name = file_->text().trimmed();
    const bool isBare = !name.isEmpty() && !hasEnding(name);
    return fromQt(isBare ? name + QStringLiteral(".h5") : name);
}

void RecordDialog::browse()
{
    Modal<SaveDialog> dialog(this, texts_(recordText::title), QFileInfo(toQt(file())).path(),
                             QStringLiteral("%1 (*.h5)").arg(texts_(recordText::files)), QStringLiteral("h5"));
    // This dialog asks.
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    dialog->selectFile(QFileInfo(toQt(file())).fileName());
    if (dialog.isAccepted())
        file_->setText(dialog->selectedFiles().value(0));
}

void RecordDialog::askForSpace()
{
    record_->setEnabled(!file_->text().trimmed().isEmpty());
    inBackground(
        *this, [file = file()] { return freeSpaceBeside(file); },
        [this, file = file()](std::optional<double> free) {
            if (file == this->file())
                showSpace(free);
        });
}

void RecordDialog::showSpace(std::optional<double> free)
{
    const QString needed = sizeText(bytes_, texts_, locale_);
    if (free)
        say(texts_(textNumber::disk::needed).arg(needed, sizeText(*free, texts_, locale_)), *free < bytes_);
    else
        say(texts_(recordText::needs).arg(needed), false);
}

void RecordDialog::say(const QString& text, bool isProblem)
{
    sign_->setPixmap(isProblem ? warningSign(*this) : QPixmap());
    space_->setText(text);
}

void RecordDialog::accept()
{
    const QFileInfo chosen(toQt(file()));
    if (file().empty())
        return;
    if (!QFileInfo(chosen.path()).isDir())
        return say(texts_(recordText::noFolder).arg(toLine(chosen.path())), true);
    if (chosen.exists()) {
        Modal<PlainBox> box(QMessageBox::Question, windowTitle(), texts_(recordText::exists).arg(chosen.fileName()),
                            texts_(recordText::replaceHint).arg(QFileInfo(toQt(keptName(file()))).fileName()),
                            QMessageBox::Cancel, this);
        const auto* const replace = box->addButton(texts_(recordText::replace), QMessageBox::DestructiveRole);
        box->setDefaultButton(QMessageBox::Cancel);
        if (box.answer() != replace)
            return;
    }
    QDialog::accept();
}

} // namespace ko
