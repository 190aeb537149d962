#include "host/docks/InstrumentGallery.h"

#include "host/setup/SetupTemplates.h"
#include "host/support/HostTexts.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

namespace ko {

namespace {

namespace editText = textNumber::instrumentEdit;

struct KindText {
    const char* word;
    int description;
};

constexpr std::array kindTexts{
    KindText{"digitizer", editText::digitizer}, KindText{"signal-analyzer", editText::signalAnalyzer},
    KindText{"counter", editText::counter}, KindText{"thermocouple-scanner", editText::thermocoupleScanner},
    KindText{"data-logger", editText::dataLogger}};

/// Empty for a kind without one.
QString descriptionOf(const Texts& texts, const std::string& word)
{
    const auto* const found =
        std::find_if(kindTexts.begin(), kindTexts.end(), [&](const KindText& kind) { return word == kind.word; });
    return found == kindTexts.end() ? QString() : texts(found->description);
}

} // namespace

InstrumentGallery::InstrumentGallery(const Texts& texts, const std::vector<InstrumentSettings>& kinds, QWidget* parent)
    : QDialog(parent), list_(new QListWidget(this))
{
    setWindowTitle(texts(editText::galleryTitle));
    auto* label = new PlainLabel(texts(editText::kinds), this);
    label->setBuddy(list_);
    list_->setAccessibleName(withoutMnemonic(label->text()));
    list_->setSpacing(fontMetrics().height() / 6);
    for (const InstrumentSettings& kind : kinds) {
        const std::string word = kindWord(kind);
        auto* item = new QListWidgetItem(toLine(kind.name) + u'\n' + descriptionOf(texts, word), list_);
        item->setData(Qt::UserRole, toQt(word));
    }
    list_->setCurrentRow(0);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(texts(editText::addButton));
    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(list_);
    column->addWidget(buttons);
    onSignal(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    onSignal(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    onSignal(list_, &QListWidget::itemDoubleClicked, this, [this] { accept(); });
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setMinimumWidth(list_->sizeHintForColumn(0) + fontMetrics().height() * 3);
    list_->setMinimumHeight(fontMetrics().height() * 16);
}

std::string InstrumentGallery::kind() const
{
    return fromQt(list_->currentItem()->data(Qt::UserRole).toString());
}

} // namespace ko
