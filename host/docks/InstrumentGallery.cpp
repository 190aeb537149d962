#include "host/docks/InstrumentGallery.h"

#include "host/setup/SetupTemplates.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/Background.h"
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

InstrumentGallery::InstrumentGallery(const Texts& texts, const std::vector<InstrumentSettings>& kinds,
                                     const std::shared_ptr<DeviceSource>& devices, QWidget* parent)
    : QDialog(parent), texts_(texts), list_(new QListWidget(this))
{
    setWindowTitle(texts(editText::galleryTitle));
    auto* label = new PlainLabel(texts(editText::kinds), this);
    label->setBuddy(list_);
    list_->setAccessibleName(withoutMnemonic(label->text()));
    list_->setSpacing(fontMetrics().height() / 6);
    addKinds(kinds);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* const ok = buttons->button(QDialogButtonBox::Ok);
    ok->setText(texts(editText::addButton));
    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(list_);
    column->addWidget(buttons);
    onSignal(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    onSignal(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    onSignal(list_, &QListWidget::itemDoubleClicked, this,
             [this](QListWidgetItem* item) { item->flags().testFlag(Qt::ItemIsEnabled) ? accept() : void(); });
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setWordWrap(true);
    list_->setMinimumWidth(list_->sizeHintForColumn(0) + fontMetrics().height() * 3);
    list_->setMinimumHeight(fontMetrics().height() * 20);
    if (devices)
        search(devices);
}

QListWidgetItem& InstrumentGallery::add(const QString& title, const QString& description)
{
    return *new QListWidgetItem(description.isEmpty() ? title : title + u'\n' + description, list_);
}

void InstrumentGallery::addKinds(const std::vector<InstrumentSettings>& kinds)
{
    for (const InstrumentSettings& kind : kinds)
        add(toLine(kind.name), descriptionOf(texts_, kindWord(kind)));
    choices_ = kinds;
    list_->setCurrentRow(0);
}

void InstrumentGallery::search(const std::shared_ptr<DeviceSource>& devices)
{
    add(texts_(textNumber::device::searching), {}).setFlags(Qt::NoItemFlags);
    inBackground(
        *this, [devices] { return devices->find(); },
        [this](const std::vector<KnownDevice>& found) { addFound(found); });
}

void InstrumentGallery::addFound(const std::vector<KnownDevice>& found)
{
    delete list_->takeItem(list_->count() - 1);
    for (const KnownDevice& device : found) {
        const bool isThere = !device.device.empty();
        const QString of = texts_(textNumber::device::ofModule)
                               .arg(toLine(device.module), toLine(isThere ? device.device : device.trouble));
        if (isThere)
            add(toLine(device.title), of);
        else
            add(of, {}).setFlags(Qt::NoItemFlags);
        InstrumentSettings& choice = choices_.emplace_back();
        choice.name = device.title.empty() ? device.device : device.title;
        choice.module = device.module;
        choice.device = device.device;
    }
}

InstrumentSettings InstrumentGallery::chosen() const
{
    return choices_.at(static_cast<std::size_t>(list_->currentRow()));
}

} // namespace ko
