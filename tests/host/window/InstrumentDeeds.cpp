#include "InstrumentDeeds.h"

#include "RandomInput.h"
#include "Workplace.h"
#include "host/docks/InstrumentsView.h"

#include <QAction>
#include <QTest>
#include <QTreeView>

namespace ko::test {

namespace {

/// Selects a row of the instruments, opened on the way. Returns null if the window has been destroyed in a message of
/// the box that is left.
QTreeView* selectInstrument(Workplace& place)
{
    InstrumentsView& dock = place.window().instruments();
    dock.setVisible(true);
    auto& tree = *dock.findChild<QTreeView*>();
    tree.setFocus();
    if (!place.hasWindow())
        return nullptr;
    QModelIndex at;
    do {
        const int rows = tree.model()->rowCount(at);
        if (rows == 0)
            break;
        tree.expand(at);
        at = tree.model()->index(place.draw().upTo(rows), 0, at);
    } while (!place.draw().oneIn(3));
    const bool isAdded = place.draw().oneIn(5);
    tree.selectionModel()->setCurrentIndex(
        at, QItemSelectionModel::Rows | (isAdded ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect));
    place.user().note("select " + at.data().toString().toStdString());
    return &tree;
}

} // namespace

void editInstruments(Workplace& place)
{
    const auto keys =
        QKeySequence::listFromString(QStringLiteral("Ins; Del; F2; Space; Ctrl+D; Ctrl+G; Ctrl+T; Shift+Ins; Alt+Up; "
                                                    "Alt+Down"));
    QTreeView* const tree = selectInstrument(place);
    if (!tree)
        return;
    const QKeySequence& key = keys.at(place.draw().upTo(static_cast<int>(keys.size())));
    place.user().note("press " + key.toString().toStdString());
    QTest::keySequence(tree, key);
    if (key == QKeySequence(Qt::Key_F2) && place.hasWindow())
        enterText(place.user(), place.window());
}

void actOnInstrument(Workplace& place)
{
    const QTreeView* const tree = selectInstrument(place);
    if (!tree)
        return;
    const auto actions = tree->actions();
    QAction* const action = actions[place.draw().upTo(static_cast<int>(actions.size()))];
    place.user().note("choose " + action->text().toStdString());
    action->trigger();
}

void breakInstrument(Workplace& place)
{
    constexpr const char* operations[]{"SamplePeriod set", "Duration get", "StartMode set", "SetTriggerParamValue",
                                       "DriverName",       "Duration set", "GroupCount",    "ScanPeriod get"};
    const HostInstruments& drivers = place.window().session().drivers();
    if (drivers.empty())
        return;
    const auto& driver = drivers[place.draw().upTo(drivers.size())];
    const std::string operation = place.draw().of(operations);
    const bool isHealed = !driver->calls().failing().empty() || place.draw().oneIn(2);
    place.user().note(isHealed ? driver->name() + " works" : driver->name() + " fails " + operation);
    isHealed ? driver->calls().healAll() : static_cast<void>(driver->calls().fail({.operation = operation}));
}

} // namespace ko::test
