#include "host/docks/PropertiesAction.h"

#include "host/docks/InstrumentsModel.h"
#include "host/properties/PropertiesDialog.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/DockLayout.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/PlainText.h"

#include <QAction>
#include <QTreeView>
#include <algorithm>

namespace ko {

PropertiesAction::PropertiesAction(QTreeView& tree, const InstrumentsModel& model, const Texts& texts,
                                   const Locale& locale, const InstrumentDescribing& window)
    : QObject(&tree), tree_(tree), model_(model), texts_(texts), locale_(locale), window_(window),
      action_(addDockAction(tree, texts(textNumber::properties::entry), "properties"))
{
    action_.setShortcuts({QKeySequence(Qt::ALT | Qt::Key_Return), QKeySequence(Qt::ALT | Qt::Key_Enter)});
    action_.setShortcutContext(Qt::WidgetShortcut);
    action_.setToolTip(plainTip(texts(textNumber::properties::hint)));
    action_.setEnabled(false);
    action_.setPriority(QAction::LowPriority);
    onSignal(&action_, &QAction::triggered, this, [this] { show(); });
    onSignal(&tree, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() == InstrumentsModel::Value)
            show();
    });
    onSignal(tree.selectionModel(), &QItemSelectionModel::currentChanged, this,
             [this](const QModelIndex& current) { action_.setEnabled(current.isValid()); });
    onSignal(&model, &QAbstractItemModel::modelReset, this,
             [this] { action_.setEnabled(tree_.currentIndex().isValid()); });
}

void PropertiesAction::follow(const HostInstruments& drivers)
{
    const auto isShown = [&](const auto& driver) { return driver.get() == driver_; };
    if (dialog_ && std::none_of(drivers.begin(), drivers.end(), isShown))
        dialog_->reject();
}

void PropertiesAction::show()
{
    const InstrumentRow* const row = model_.row(tree_.currentIndex());
    if (!row)
        return;
    driver_ = &row->driver();
    const bool isLocked = window_.isLocked && window_.isLocked();
    auto* const dialog = new PropertiesDialog(texts_, locale_, driver_->settings(), isLocked, &tree_);
    dialog_ = dialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->apply = [this](const InstrumentSettings& settings) {
        return window_.describe && window_.describe(*driver_, settings);
    };
    if (row->channel() >= 0)
        dialog->showChannel(
            channelPath(static_cast<std::size_t>(row->group()), static_cast<std::size_t>(row->channel())));
    dialog->open();
}

} // namespace ko
