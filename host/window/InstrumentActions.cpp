#include "host/window/InstrumentActions.h"

#include "host/setup/SetupChanges.h"
#include "host/support/HostTexts.h"
#include "host/window/DockLayout.h"
#include "host/window/InstrumentsModel.h"
#include "widgets/support/Guarded.h"

#include <QAction>
#include <QKeyEvent>
#include <QTreeView>
#include <set>

namespace ko {

namespace editText = textNumber::instrumentEdit;

InstrumentActions::InstrumentActions(QTreeView& tree, const InstrumentsModel& model, const Texts& texts,
                                     const InstrumentEditing& editing)
    : QObject(&tree), tree_(tree), model_(model), texts_(texts), editing_(editing),
      add_(make(editText::add, "add", Qt::Key_Insert, [this] { editing_.add ? editing_.add() : void(); })),
      remove_(make(editText::remove, "remove", Qt::Key_Delete, [this] { remove(); }))
{
    add_->setPriority(QAction::NormalPriority);
    tree.installEventFilter(this);
    onSignal(tree.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { follow(); });
    onSignal(&model, &QAbstractItemModel::modelReset, this, [this] { follow(); });
    follow();
}

QAction* InstrumentActions::make(int text, const char* name, const QKeySequence& key, std::function<void()> act)
{
    QAction& action = addDockAction(tree_, texts_(text), name);
    action.setShortcut(key);
    action.setShortcutContext(Qt::WidgetShortcut);
    action.setPriority(QAction::LowPriority);
    actions_.push_back(&action);
    onSignal(&action, &QAction::triggered, this, std::move(act));
    return &action;
}

void InstrumentActions::follow()
{
    remove_->setEnabled(!selectedInstruments().empty());
}

/// The window's menu Edit has some of the keys, too, and two shortcuts of one key would cancel each other.
bool InstrumentActions::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const QKeySequence key(static_cast<QKeyEvent*>(event)->keyCombination());
    for (QAction* const action : actions_) {
        if (action->shortcut() != key)
            continue;
        if (event->type() == QEvent::KeyPress)
            action->trigger();
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

bool InstrumentActions::change(const InstrumentChange& change) const
{
    return editing_.edit && editing_.edit(change);
}

std::vector<std::size_t> InstrumentActions::selectedInstruments() const
{
    std::set<std::size_t> found;
    for (const QModelIndex& index : tree_.selectionModel()->selectedRows())
        if (model_.row(index)->kind() == InstrumentRow::Kind::Instrument)
            found.insert(static_cast<std::size_t>(index.row()));
    return {found.begin(), found.end()};
}

void InstrumentActions::remove()
{
    const std::vector<std::size_t> instruments = selectedInstruments();
    if (!instruments.empty())
        (void)change([&](Setup& setup) { removeInstruments(setup, instruments); });
}

} // namespace ko
