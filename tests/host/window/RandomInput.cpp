#include "RandomInput.h"

#include "RandomUser.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QWheelEvent>

namespace ko::test {

namespace {

std::string nameOf(const QWidget& widget)
{
    const QString name = widget.objectName().isEmpty() && widget.parentWidget() ? widget.parentWidget()->objectName()
                                                                                : widget.objectName();
    return std::string(widget.metaObject()->className()) + " " + name.toStdString();
}

bool isInput(const QWidget* widget, bool withToolBars)
{
    const QWidget* above = widget->parentWidget();
    if (qobject_cast<const QToolBar*>(above) && !withToolBars)
        return false;
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QTabBar*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget) ||
           (qobject_cast<const QAbstractItemView*>(above) &&
            static_cast<const QAbstractItemView*>(above)->viewport() == widget);
}

/// Returns the widget that receives key events.
QWidget& keyboardOf(QWidget& front)
{
    QWidget* focused = front.focusWidget();
    return focused ? *focused : front;
}

/// A widget for input, and a place in it.
struct Target {
    QWidget* widget = nullptr;
    QPoint place;
};

Target anyTarget(RandomUser& user, const QWidget& front)
{
    QList<QWidget*> inputs;
    for (QWidget* widget : front.findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == &front && isInput(widget, user.usesToolBars))
            inputs.push_back(widget);
    if (inputs.empty())
        return {};
    QWidget* target = inputs[user.draw.upTo(static_cast<int>(inputs.size()))];
    const QPoint place(user.draw.upTo(target->width()), user.draw.upTo(target->height()));
    // A child widget at that place takes the event.
    if (QWidget* inner = target->childAt(place))
        return {inner, inner->mapFrom(target, place)};
    return {target, place};
}

void click(RandomUser& user, QWidget& front)
{
    const auto [target, place] = anyTarget(user, front);
    if (!target)
        return;
    const bool isDouble = user.draw.oneIn(6);
    const Qt::KeyboardModifiers with = user.draw.oneIn(10) ? Qt::ShiftModifier : Qt::NoModifier;
    user.note((isDouble ? "double-click " : "click ") + nameOf(*target) + " " + std::to_string(place.x()) + "," +
              std::to_string(place.y()) + (with ? " with Shift" : ""));
    isDouble ? QTest::mouseDClick(target, Qt::LeftButton, with, place)
             : QTest::mouseClick(target, Qt::LeftButton, with, place);
}

void press(RandomUser& user, QWidget& front)
{
    constexpr Qt::Key plain[]{Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Up,
                              Qt::Key_Down, Qt::Key_Left,    Qt::Key_Right,  Qt::Key_Home,   Qt::Key_End,
                              Qt::Key_F1,   Qt::Key_F2,      Qt::Key_Space,  Qt::Key_Delete, Qt::Key_Backspace};
    constexpr Qt::Key withControl[]{Qt::Key_A, Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_Z, Qt::Key_Home};
    constexpr Qt::Key withShift[]{Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_F1};
    constexpr Qt::Key withAlt[]{Qt::Key_I, Qt::Key_R, Qt::Key_T, Qt::Key_D, Qt::Key_S, Qt::Key_B};
    QKeyCombination key(Qt::NoModifier, user.draw.of(plain));
    switch (user.draw.upTo(6)) {
    case 0: key = Qt::ControlModifier | user.draw.of(withControl); break;
    case 1: key = Qt::ShiftModifier | user.draw.of(withShift); break;
    case 2: key = Qt::AltModifier | user.draw.of(withAlt); break;
    default: break;
    }
    QWidget& target = keyboardOf(front);
    user.note("press " + QKeySequence(key).toString().toStdString() + " in " + nameOf(target));
    QTest::keyClick(&target, key.key(), key.keyboardModifiers());
}

void type(RandomUser& user, QWidget& front)
{
    constexpr char letters[] = "0123456789.-e: \"\\#ax";
    const char letter = letters[user.draw.upTo(static_cast<int>(sizeof letters) - 1)];
    QWidget& target = keyboardOf(front);
    user.note(std::string("type ") + letter + " in " + nameOf(target));
    QTest::keyClick(&target, letter);
}

void wheel(RandomUser& user, QWidget& front)
{
    const auto [target, place] = anyTarget(user, front);
    if (!target)
        return;
    const int turn = user.draw.oneIn(2) ? 120 : -120;
    user.note("wheel " + nameOf(*target) + " " + std::to_string(turn));
    QWheelEvent event(place, target->mapToGlobal(place), {}, {0, turn}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(target, &event);
}

void askForMenu(RandomUser& user, QWidget& front)
{
    const auto [target, place] = anyTarget(user, front);
    if (!target)
        return;
    user.note("context menu of " + nameOf(*target));
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, target->mapToGlobal(place));
    QApplication::sendEvent(target, &event);
}

void dropText(RandomUser& user, QWidget& front)
{
    constexpr const char* texts[]{"2", "0.5", "1e3", "x", "12:00:00", "7\n8"};
    auto [target, place] = anyTarget(user, front);
    if (!qobject_cast<QLineEdit*>(target) || !target->acceptDrops())
        return;
    QMimeData data;
    data.setText(QString::fromLatin1(user.draw.of(texts)));
    user.note("drop \"" + data.text().toStdString() + "\" on " + nameOf(*target));
    const QPointer<QWidget> life = target;
    QDragEnterEvent entering(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &entering);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    if (life && entering.isAccepted())
        QApplication::sendEvent(life, &drop);
}

struct Input {
    int weight;
    void (*make)(RandomUser&, QWidget&);
};

constexpr Input inputs[]{{60, click}, {60, press},     {20, type},   {20, enterText},
                         {4, wheel},  {3, askForMenu}, {4, dropText}};

void useMenu(RandomUser& user, QMenu& menu)
{
    QList<QAction*> entries;
    for (QAction* entry : menu.actions())
        if (entry->isVisible() && !entry->isSeparator())
            entries.push_back(entry);
    if (entries.empty() || user.draw.oneIn(5)) {
        user.note("close the menu");
        menu.close();
        return;
    }
    QAction* const entry = entries[user.draw.upTo(static_cast<int>(entries.size()))];
    user.note("choose " + entry->text().toStdString());
    if (user.draw.oneIn(2))
        return QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(entry).center());
    menu.setActiveAction(entry);
    QTest::keyClick(&menu, Qt::Key_Return);
}

} // namespace

void makeInput(RandomUser& user, QWidget& front)
{
    user.draw.weighted(inputs).make(user, front);
}

void makePopupInput(RandomUser& user, QWidget& popup)
{
    constexpr Qt::Key keys[]{Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Return, Qt::Key_Escape};
    if (auto* menu = qobject_cast<QMenu*>(&popup))
        return useMenu(user, *menu);
    auto* list = popup.findChild<QAbstractItemView*>();
    if (!list || !list->model() || list->model()->rowCount() == 0) {
        popup.close();
        return;
    }
    if (user.draw.oneIn(2)) {
        const Qt::Key key = user.draw.of(keys);
        user.note("press " + QKeySequence(key).toString().toStdString() + " in the list");
        return QTest::keyClick(list, key);
    }
    const QModelIndex entry = list->model()->index(user.draw.upTo(list->model()->rowCount()), 0);
    user.note("choose " + entry.data().toString().toStdString());
    list->scrollTo(entry);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(entry).center());
}

void enterText(RandomUser& user, QWidget& front)
{
    constexpr const char* entries[]{"1",   "2.5", "0.01", "1000", "64",  "0.0003", "12:30:00", "-3",
                                    "abc", "1e9", "2",    "20",   "0.1", "0.5",    "500",      "5"};
    const QPointer<QWidget> target = &keyboardOf(front);
    const char* const text = user.draw.of(entries);
    const bool isLeft = user.draw.upTo(3) > 0;
    const Qt::Key leaving = user.draw.oneIn(2) ? Qt::Key_Tab : Qt::Key_Return;
    user.note("enter " + std::string(text) + " in " + nameOf(*target) +
              (isLeft ? " and " + QKeySequence(leaving).toString().toStdString() : ""));
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    for (const char* letter = text; *letter != '\0' && target; ++letter)
        QTest::keyClick(target, *letter);
    if (target && isLeft)
        QTest::keyClick(target, leaving);
}

} // namespace ko::test
