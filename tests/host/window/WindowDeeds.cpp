#include "WindowDeeds.h"

#include "InstrumentDeeds.h"
#include "RandomInput.h"
#include "Workplace.h"

#include <QApplication>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QUndoView>
#include <QUrl>

namespace ko::test {

namespace {

const QString setups[]{QStringLiteral("bench.json"),
                       QStringLiteral("engine-bench-demo.json"),
                       QStringLiteral("instrument-kinds.json"),
                       QStringLiteral("none.json"),
                       QStringLiteral("broken.json"),
                       QStringLiteral("missing.json")};

void openMenu(Workplace& place)
{
    QMenuBar& bar = *place.window().menuBar();
    const auto entries = bar.actions();
    QAction* const menu = entries[place.draw().upTo(static_cast<int>(entries.size()))];
    if (menu->isVisible() && menu->isEnabled())
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(menu).center());
}

/// By keys, as most of what a window offers.
void useShortcut(Workplace& place)
{
    QList<QAction*> keyed;
    for (QAction* action : place.window().findChildren<QAction*>())
        if (!action->shortcut().isEmpty())
            keyed.push_back(action);
    const QKeySequence key = keyed[place.draw().upTo(static_cast<int>(keyed.size()))]->shortcut();
    place.user().note("press " + key.toString().toStdString());
    place.press(key);
}

void undo(Workplace& place)
{
    for (int i = place.draw().upTo(6); i >= 0 && place.hasWindow(); --i)
        place.press(QKeySequence(Qt::CTRL | Qt::Key_Z));
}

void redo(Workplace& place)
{
    for (int i = place.draw().upTo(6); i >= 0 && place.hasWindow(); --i)
        place.press(QKeySequence(Qt::CTRL | Qt::Key_Y));
}

void jumpInHistory(Workplace& place)
{
    constexpr Qt::Key keys[]{Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp};
    QDockWidget& dock = place.window().history().dock();
    dock.show();
    auto* const list = dock.findChild<QUndoView*>();
    list->setFocus();
    if (place.hasWindow())
        QTest::keyClick(list, place.draw().of(keys));
}

/// Goes to a box of the page by a press and enters a value.
void enterValue(Workplace& place)
{
    QList<QWidget*> boxes;
    for (const Control* control : place.page().controls())
        if (QWidget* const box = place.window().page().view().widget(*control);
            box && box->isVisible() && control->isUsable() && control->typeName() == "TextBox")
            boxes.push_back(box);
    if (boxes.empty())
        return;
    QTest::mouseClick(boxes[place.draw().upTo(static_cast<int>(boxes.size()))], Qt::LeftButton);
    if (place.hasWindow() && !QApplication::activeModalWidget())
        enterText(place.user(), place.window());
}

void switchReadOnly(Workplace& place)
{
    const bool isReadOnly = place.page().readOnly;
    // Its entry is disabled during a recording.
    if (place.window().recording().isActive() || (!isReadOnly && !place.draw().oneIn(5)))
        return;
    for (QAction* entry : place.window().menuBar()->actions()[2]->menu()->actions())
        if (entry->isCheckable() && entry->isChecked() == isReadOnly && !entry->isSeparator())
            return entry->trigger();
}

void dropFile(Workplace& place)
{
    const QString name = place.draw().of(setups);
    place.user().note("drop " + name.toStdString());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(place.path(name))});
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&place.window(), &drop);
}

void openSetup(Workplace& place)
{
    // Without a set-up there is little to do.
    const QString name = place.window().session().hasSetup() ? place.draw().of(setups) : setups[0];
    place.user().note("open " + name.toStdString());
    place.window().files().open(place.path(name));
}

/// Another program changes or deletes a file.
void changeOnDisk(Workplace& place)
{
    const QString open = toQt(place.window().session().file());
    const QString file = open.isEmpty() ? place.path(setups[0]) : open;
    const int kind = place.draw().upTo(4);
    place.user().note("change " + file.toStdString() + " on disk, " + std::to_string(kind));
    switch (kind) {
    case 0: QFile::remove(file); break;
    case 1: place.write(file, "?"); break;
    case 2: place.write(file, R"({"drivers": [{"name": "New", "timebase": {}}]})"); break;
    default: QFile::remove(file); QFile::copy(place.path("instrument-kinds.json"), file);
    }
}

void record(Workplace& place)
{
    FrameRecording& recording = place.window().recording();
    if (recording.isActive())
        return recording.stop();
    place.draw().oneIn(2) ? recording.record() : recording.monitor();
}

void useDock(Workplace& place)
{
    const auto docks = place.window().findChildren<QDockWidget*>();
    QDockWidget& dock = *docks[place.draw().upTo(static_cast<int>(docks.size()))];
    place.user().note("dock " + dock.objectName().toStdString());
    switch (place.draw().upTo(4)) {
    case 0: dock.setFloating(!dock.isFloating()); break;
    case 1: dock.close(); break;
    default: dock.toggleViewAction()->trigger();
    }
}

void resize(Workplace& place)
{
    constexpr int sizes[]{1, 300, 700, 1200, 2500};
    place.window().resize(place.draw().of(sizes), place.draw().of(sizes));
}

void goElsewhere(Workplace& place)
{
    QWidget other;
    other.show();
    other.activateWindow();
    QApplication::processEvents();
    other.close();
    if (place.hasWindow())
        place.window().activateWindow();
}

void closeOthers(Workplace& place)
{
    for (QWidget* other : QApplication::topLevelWidgets())
        if (place.hasWindow() && other != &place.window() && other->isVisible() && !other->isModal())
            other->close();
}

void close(Workplace& place)
{
    place.window().close();
}

void destroy(Workplace& place)
{
    place.destroy();
}

void wait(Workplace& place)
{
    QTest::qWait(place.draw().upTo(20));
}

constexpr WindowDeed opening{"open a set-up", 2, openSetup};

constexpr WindowDeed deeds[]{{"open a menu", 10, openMenu},
                             {"use a shortcut", 6, useShortcut},
                             {"undo", 5, undo},
                             {"redo", 4, redo},
                             {"jump in the history", 2, jumpInHistory},
                             {"edit the instruments", 30, editInstruments},
                             {"act on an instrument", 12, actOnInstrument},
                             {"enter a value", 60, enterValue},
                             {"switch read-only", 10, switchReadOnly},
                             {"drop a file", 1, dropFile},
                             opening,
                             {"change on disk", 4, changeOnDisk},
                             {"break an instrument", 8, breakInstrument},
                             {"record or stop", 4, record},
                             {"use a dock", 4, useDock},
                             {"resize", 2, resize},
                             {"go elsewhere", 3, goElsewhere},
                             {"close other windows", 6, closeOthers},
                             {"close the window", 2, close},
                             {"destroy the window", 1, destroy},
                             {"wait", 4, wait}};

} // namespace

std::span<const WindowDeed> windowDeeds()
{
    return deeds;
}

const WindowDeed& openingASetup()
{
    return opening;
}

} // namespace ko::test
