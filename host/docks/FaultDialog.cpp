#include "host/docks/FaultDialog.h"

#include "host/support/HostTexts.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>

namespace ko {

namespace {

/// Returns whether the operation can be called: false if it belongs to a view that the instrument lacks.
bool isOffered(Operation operation, const InstrumentSettings& driver)
{
    const auto isFrom = [&](Operation first, Operation last) { return operation >= first && operation <= last; };
    if (isFrom(Operation::SamplePeriodSet, Operation::StartModeSet))
        return driver.timebase.has_value();
    if (isFrom(Operation::GetTriggerParamCount, Operation::GetTriggerGroupName))
        return driver.hasTriggerParameters;
    if (isFrom(Operation::StartMasterRank, Operation::StartLinesAsListener))
        return driver.triggerLines.has_value();
    return true;
}

bool isTicked(const QListWidgetItem& item)
{
    return item.checkState() == Qt::Checked;
}

} // namespace

FaultDialog::FaultDialog(const Texts& texts, HostInstrument& driver, QWidget* parent)
    : QDialog(parent), driver_(driver), list_(new QListWidget(this))
{
    setWindowTitle(texts(hostText::faultsOf).arg(plainTitle(toQt(driver.name()))));
    auto* label = new PlainLabel(texts(hostText::failingOperations), this);
    label->setBuddy(list_);
    list_->setAccessibleName(withoutMnemonic(label->text()));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* heal = buttons->addButton(texts(hostText::healAll), QDialogButtonBox::ResetRole);
    heal->setObjectName(QStringLiteral("healAll"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(list_);
    column->addWidget(buttons);
    onSignal(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    onSignal(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    onSignal(heal, &QPushButton::clicked, this, [this] {
        healsAll_ = true;
        for (int i = 0; i < list_->count(); ++i)
            list_->item(i)->setCheckState(Qt::Unchecked);
    });
    fillList();
    resize(fontMetrics().averageCharWidth() * 50, fontMetrics().height() * 24);
}

void FaultDialog::fillList()
{
    const std::vector<SimulatedFailure> failing = driver_.calls().failing();
    for (std::size_t i = 0; i < operationCount; ++i) {
        const auto operation = static_cast<Operation>(i);
        const std::string name = failingName(operation);
        if (!isOffered(operation, driver_.held()))
            continue;
        const bool fails =
            std::any_of(failing.begin(), failing.end(), [&](const SimulatedFailure& f) { return f.operation == name; });
        auto* item = new QListWidgetItem(toQt(name), list_);
        item->setCheckState(fails ? Qt::Checked : Qt::Unchecked);
        item->setData(Qt::UserRole, fails);
    }
    list_->setCurrentRow(0);
}

void FaultDialog::accept()
{
    if (healsAll_)
        heal({});
    for (int i = 0; i < list_->count(); ++i) {
        const QListWidgetItem& item = *list_->item(i);
        const bool wasTicked = !healsAll_ && item.data(Qt::UserRole).toBool();
        if (isTicked(item) && !wasTicked)
            fail(fromQt(item.text()));
        else if (!isTicked(item) && wasTicked)
            heal(fromQt(item.text()));
    }
    QDialog::accept();
}

void FaultDialog::heal(const std::string& operation)
{
    CallGate& calls = driver_.calls();
    operation.empty() ? calls.healAll() : static_cast<void>(calls.heal(operation));
    if (changed)
        changed(operation, false);
}

void FaultDialog::fail(const std::string& operation)
{
    driver_.calls().fail({.operation = operation});
    if (changed)
        changed(operation, true);
}

} // namespace ko
