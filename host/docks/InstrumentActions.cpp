#include "host/docks/InstrumentActions.h"

#include "host/docks/InstrumentsModel.h"
#include "host/support/HostTexts.h"
#include "host/toolkit/DockLayout.h"
#include "widgets/support/Guarded.h"

#include <QAction>
#include <QKeyEvent>
#include <QPointer>
#include <QTreeView>
#include <algorithm>

namespace ko {

namespace editText = textNumber::instrumentEdit;

namespace {

bool isWithin(const SetupPlace& inner, const SetupPlace& outer)
{
    return inner != outer && inner.instrument == outer.instrument &&
           (outer.isInstrument() || (inner.group == outer.group && !outer.isChannel()));
}

bool isPlace(const InstrumentRow& row)
{
    using Kind = InstrumentRow::Kind;
    return row.kind() == Kind::Instrument || row.kind() == Kind::Group || row.kind() == Kind::Channel;
}

} // namespace

InstrumentActions::InstrumentActions(QTreeView& tree, InstrumentsModel& model, const Texts& texts,
                                     const InstrumentEditing& editing)
    : QObject(&tree), tree_(tree), model_(model), texts_(texts), editing_(editing)
{
    makeListActions();
    separate();
    makePartActions();
    separate();
    model.rename = [this](const SetupPlace& place, const std::string& name) {
        change([&](Setup& setup) {
            renameAt(setup, place, name);
            return SetupPlaces{place};
        });
    };
    tree.installEventFilter(this);
    onSignal(tree.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { follow(); });
    onSignal(tree.selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { follow(); });
    onSignal(&model, &QAbstractItemModel::modelReset, this, [this] { follow(); });
    follow();
}

QAction* InstrumentActions::make(const Entry& entry, std::function<void()> act)
{
    QAction& action = addDockAction(tree_, texts_(entry.text), entry.name);
    action.setShortcut(entry.key);
    action.setShortcutContext(Qt::WidgetShortcut);
    action.setPriority(QAction::LowPriority);
    all_.push_back(&action);
    onSignal(&action, &QAction::triggered, this, std::move(act));
    return &action;
}

void InstrumentActions::separate()
{
    auto* const line = new QAction(&tree_);
    line->setSeparator(true);
    line->setPriority(QAction::LowPriority);
    tree_.addAction(line);
}

void InstrumentActions::makeListActions()
{
    make({editText::add, "add", Qt::Key_Insert}, [this] {
        if (editing_.add)
            editing_.add();
    })->setPriority(QAction::NormalPriority);
    forSelected_ = {
        make({editText::duplicate, "duplicate", QKeySequence(Qt::CTRL | Qt::Key_D)}, [this] { duplicate(); }),
        make({editText::rename, "rename", Qt::Key_F2}, [this] { beginRename(); }),
        make({editText::remove, "remove", Qt::Key_Delete}, [this] { remove(); }),
        make({editText::moveUp, "moveUp", QKeySequence(Qt::ALT | Qt::Key_Up)}, [this] { move(false); }),
        make({editText::moveDown, "moveDown", QKeySequence(Qt::ALT | Qt::Key_Down)}, [this] { move(true); })};
}

void InstrumentActions::makePartActions()
{
    forCurrent_ = {
        make({editText::addGroup, "addGroup", QKeySequence(Qt::CTRL | Qt::Key_G)}, [this] { addPart(false); }),
        make({editText::addChannel, "addChannel", QKeySequence(Qt::SHIFT | Qt::Key_Insert)},
             [this] { addPart(true); })};
    forSelected_.push_back(make({editText::enable, "enable", {}}, [this] { enable(true); }));
    forSelected_.push_back(make({editText::disable, "disable", {}}, [this] { enable(false); }));
    trigger_ = make({editText::chooseTrigger, "triggerSource", QKeySequence(Qt::CTRL | Qt::Key_T)},
                    [this] { chooseTriggerSource(); });
}

void InstrumentActions::follow()
{
    const bool isAny = !selected().empty();
    for (QAction* const action : forSelected_)
        action->setEnabled(isAny);
    const std::optional<SetupPlace> at = current();
    for (QAction* const action : forCurrent_)
        action->setEnabled(at.has_value());
    trigger_->setEnabled(at && at->isChannel());
}

/// The window's menu Edit has some of the keys, too, and two shortcuts of one key would cancel each other.
bool InstrumentActions::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const bool isPress = event->type() == QEvent::KeyPress;
    const QKeySequence key(static_cast<QKeyEvent*>(event)->keyCombination());
    if (isPress && key == QKeySequence(Qt::Key_Space) && switchSelected())
        return true;
    const auto found =
        std::find_if(all_.begin(), all_.end(), [&](const QAction* action) { return action->shortcut() == key; });
    if (found == all_.end() || key.isEmpty())
        return QObject::eventFilter(watched, event);
    event->accept();
    if (isPress)
        (*found)->trigger();
    return true;
}

void InstrumentActions::change(const std::function<SetupPlaces(Setup& setup)>& change)
{
    const QPointer<QTreeView> life = &tree_;
    SetupPlaces places;
    if (!editing_.edit || !editing_.edit([&](Setup& setup) { places = change(setup); }) || !life)
        return;
    tree_.clearSelection();
    for (const SetupPlace& place : places) {
        const QModelIndex index = model_.indexOf(place);
        tree_.selectionModel()->setCurrentIndex(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
        tree_.scrollTo(index);
    }
}

SetupPlaces InstrumentActions::selected() const
{
    SetupPlaces all, places;
    for (const QModelIndex& index : tree_.selectionModel()->selectedRows())
        if (isPlace(*model_.row(index)))
            all.push_back(InstrumentsModel::placeOf(*model_.row(index)));
    std::sort(all.begin(), all.end());
    for (const SetupPlace& place : all)
        if (places.empty() || !isWithin(place, places.back()))
            places.push_back(place);
    return places;
}

std::optional<SetupPlace> InstrumentActions::current() const
{
    const InstrumentRow* const row = model_.row(tree_.currentIndex());
    return row ? std::optional(InstrumentsModel::placeOf(*row)) : std::nullopt;
}

void InstrumentActions::beginRename()
{
    const QModelIndex at = tree_.currentIndex().siblingAtColumn(InstrumentsModel::Name);
    if (at.flags().testFlag(Qt::ItemIsEditable))
        tree_.edit(at);
}

void InstrumentActions::remove()
{
    change([places = selected()](Setup& setup) {
        removeAt(setup, places);
        return SetupPlaces();
    });
}

void InstrumentActions::duplicate()
{
    change([places = selected()](Setup& setup) { return duplicateAt(setup, places); });
}

void InstrumentActions::move(bool down)
{
    change([places = selected(), down](Setup& setup) { return moveAt(setup, places, down); });
}

void InstrumentActions::addPart(bool isChannel)
{
    const std::optional<SetupPlace> at = current();
    if (!at)
        return;
    const std::string name = fromQt(texts_(editText::group));
    change([&](Setup& setup) {
        SetupPlace group = *at;
        const bool needsGroup = !isChannel || setup.instruments[at->instrument].groups.empty();
        if (needsGroup)
            group = addGroup(setup, at->instrument, name);
        else if (at->isInstrument())
            group.group = static_cast<int>(setup.instruments[at->instrument].groups.size()) - 1;
        return SetupPlaces{isChannel ? addChannel(setup, group) : group};
    });
}

void InstrumentActions::enable(bool on)
{
    change([places = selected(), on](Setup& setup) {
        enableAt(setup, places, on);
        return places;
    });
}

void InstrumentActions::chooseTriggerSource()
{
    if (const std::optional<SetupPlace> at = current(); at && at->isChannel())
        change([&](Setup& setup) {
            chooseTrigger(setup, *at);
            return SetupPlaces{*at};
        });
}

/// Space switches several selected rows as the current one is not; a single one is switched by its check box.
bool InstrumentActions::switchSelected()
{
    const InstrumentRow* const row = model_.row(tree_.currentIndex());
    const SetupPlaces places = selected();
    if (!row || places.size() < 2 || row->kind() != InstrumentRow::Kind::Channel)
        return false;
    enable(!row->channelSettings().isEnabled());
    return true;
}

} // namespace ko
