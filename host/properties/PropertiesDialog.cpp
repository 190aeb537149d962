#include "host/properties/PropertiesDialog.h"

#include "host/support/HostTexts.h"
#include "host/toolkit/HelpWindow.h"
#include "widgets/bindings/WarningLabel.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QTabWidget>

namespace ko {

namespace {

namespace named = textNumber::properties;

} // namespace

PropertiesDialog::PropertiesDialog(const Texts& texts, const Locale& locale, const InstrumentSettings& settings,
                                   bool isLocked, QWidget* parent)
    : QDialog(parent), texts_(texts), original_(settings), properties_(settings, locale),
      fields_(properties_, isLocked), context_{texts_, properties_, fields_, isLocked}
{
    setWindowTitle(texts(named::title).arg(plainTitle(toQt(settings.name))));
    auto* const column = new QVBoxLayout(this);
    // In this order the Tab key leads through them.
    addHead(*column);
    addTabs(*column);
    addButtons(*column);
    const QSize wanted(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 44);
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
}

void PropertiesDialog::addHead(QBoxLayout& column)
{
    auto* const form = new QFormLayout;
    column.addLayout(form);
    fields_.addBox(*form, texts_(named::name), "name", TextForm::Text);
    if (!original_.module.empty()) {
        fields_.addBox(*form, texts_(textNumber::device::module), "module", TextForm::Text).setReadOnly(true);
        fields_.addBox(*form, texts_(textNumber::device::device), "device", TextForm::Text);
        return;
    }
    kind_ = &makeKindList(context_, this);
    auto* const caption = new PlainLabel(texts_(named::kind), this);
    caption->setBuddy(kind_);
    form->addRow(caption, kind_);
}

void PropertiesDialog::addTabs(QBoxLayout& column)
{
    auto* const tabs = new QTabWidget(this);
    tabs->setAccessibleName(windowTitle());
    column.addWidget(tabs);
    if (original_.module.empty())
        addSimulatedTabs(*tabs);
    else
        tabs->addTab(makeDeviceTab(context_, original_, tabs), texts_(textNumber::device::options));
    message_ = new WarningLabel(this);
    message_->setObjectName(QStringLiteral("refusal"));
    message_->setWordWrap(true);
    message_->hide();
    column.addWidget(message_);
}

void PropertiesDialog::addSimulatedTabs(QTabWidget& tabs)
{
    tabs.addTab(makeSamplingTab(context_, *kind_, &tabs), texts_(named::sampling));
    tabs.addTab(makeLinesTab(context_, &tabs), texts_(hostText::triggerLines));
    channels_ = new ChannelsTab(context_, original_.groups, &tabs);
    tabs.addTab(channels_, texts_(textNumber::page::channels));
}

void PropertiesDialog::addButtons(QBoxLayout& column)
{
    const auto offered = context_.isLocked ? QDialogButtonBox::StandardButtons(QDialogButtonBox::Close)
                                           : QDialogButtonBox::Ok | QDialogButtonBox::Cancel;
    auto* const buttons = new QDialogButtonBox(offered, this);
    column.addWidget(buttons);
    onSignal(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    onSignal(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
}

void PropertiesDialog::accept()
{
    fields_.take();
    if (channels_)
        channels_->take();
    try {
        const InstrumentSettings settings = properties_.settings();
        const QPointer<QDialog> self(this);
        const bool isTaken = settings == original_ || !apply || apply(settings);
        if (isTaken && self)
            QDialog::accept();
    } catch (const PropertyRefusal& refusal) {
        showRefusal(refusal);
    }
}

void PropertiesDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1)
        showHelp(texts_, *parentWidget()->window(), propertiesTopic);
    else
        QDialog::keyPressEvent(event);
}

void PropertiesDialog::showRefusal(const PropertyRefusal& refusal)
{
    QString name = channels_ ? channels_->focusOn(refusal) : QString();
    if (name.isEmpty())
        name = fields_.focusOn(refusal);
    if (name.isEmpty())
        name = toQt(refusal.path());
    showMessage(texts_(textNumber::sheet::namedValue).arg(name, toQt(refusal.what())));
}

void PropertiesDialog::showMessage(const QString& text)
{
    message_->setText(text);
    message_->show();
    QAccessibleEvent event(message_, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace ko
