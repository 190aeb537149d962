#include "RandomUser.h"

#include "platform/Scoped.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>

namespace ko::test {

namespace {

/// Leaves the toolbar alone: while a monitor runs the page takes no input, and a replay has none.
bool isInput(const QWidget* widget)
{
    const QWidget* above = widget->parentWidget();
    if (qobject_cast<const QToolBar*>(above))
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

} // namespace

void RandomUser::act()
{
    have([this] { use(window_); });
}

void RandomUser::have(const std::function<void()>& done)
{
    {
        const Scoped acting(isActing_, true);
        attendSoon();
        done();
        do
            QApplication::processEvents();
        while (QApplication::activeModalWidget());
    }
    QApplication::processEvents();
}

/// By a timer, because a modal dialog runs its own event loop inside the call that opens it.
void RandomUser::attendSoon()
{
    QTimer::singleShot(0, &window_, [this] { attend(); });
}

void RandomUser::attend()
{
    if (!isActing_)
        return;
    attendSoon();
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && !isSettling_)
        useModal(*modal);
}

void RandomUser::useModal(QWidget& modal)
{
    auto* dialog = qobject_cast<QDialog*>(&modal);
    if (const auto* box = qobject_cast<QMessageBox*>(&modal)) {
        lastMessage_ = box->text();
        return dialog->accept();
    }
    if (modal_ != &modal)
        patience_ = upTo(12);
    modal_ = &modal;
    if (--patience_ >= 0)
        use(modal);
    else if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    else
        upTo(3) == 0 ? dialog->reject() : dialog->accept();
}

void RandomUser::use(QWidget& front)
{
    if (!front.isActiveWindow()) {
        const Scoped settling(isSettling_, true);
        front.activateWindow();
        QApplication::processEvents();
    }
    if (QWidget* popup = QApplication::activePopupWidget())
        return usePopup(*popup);
    switch (upTo(8)) {
    case 0:
    case 1:
    case 2: return click(front);
    case 3: return type(front);
    case 4: return enter(front);
    default: return press(front);
    }
}

void RandomUser::usePopup(QWidget& popup)
{
    constexpr Qt::Key keys[]{Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Return, Qt::Key_Escape};
    auto* list = popup.findChild<QAbstractItemView*>();
    if (!list || !list->model() || list->model()->rowCount() == 0) {
        popup.close();
        return;
    }
    if (upTo(2) == 0) {
        QTest::keyClick(list, keys[upTo(5)]);
        return;
    }
    const QModelIndex entry = list->model()->index(upTo(list->model()->rowCount()), 0);
    list->scrollTo(entry);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(entry).center());
}

void RandomUser::click(QWidget& front)
{
    QList<QWidget*> inputs;
    for (QWidget* widget : front.findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == &front && isInput(widget))
            inputs.push_back(widget);
    if (inputs.empty())
        return;
    QWidget* target = inputs[upTo(static_cast<int>(inputs.size()))];
    const QPoint place(upTo(std::max(target->width(), 1)), upTo(std::max(target->height(), 1)));
    // A child widget at that place may take the click.
    if (QWidget* inner = target->childAt(place))
        QTest::mouseClick(inner, Qt::LeftButton, {}, inner->mapFrom(target, place));
    else if (upTo(6) == 0)
        QTest::mouseDClick(target, Qt::LeftButton, {}, place);
    else
        QTest::mouseClick(target, Qt::LeftButton, upTo(10) == 0 ? Qt::ShiftModifier : Qt::NoModifier, place);
}

void RandomUser::press(QWidget& front)
{
    constexpr Qt::Key plain[]{Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Up,
                              Qt::Key_Down, Qt::Key_Left,    Qt::Key_Right,  Qt::Key_Home,   Qt::Key_End,
                              Qt::Key_F1,   Qt::Key_F2,      Qt::Key_Space,  Qt::Key_Delete, Qt::Key_Backspace};
    constexpr Qt::Key withControl[]{Qt::Key_A, Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_Z, Qt::Key_Home};
    constexpr Qt::Key withShift[]{Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_F1};
    constexpr Qt::Key withAlt[]{Qt::Key_I, Qt::Key_R, Qt::Key_T, Qt::Key_D, Qt::Key_S, Qt::Key_B};
    QWidget& target = keyboardOf(front);
    switch (upTo(6)) {
    case 0: QTest::keyClick(&target, withControl[upTo(6)], Qt::ControlModifier); break;
    case 1: QTest::keyClick(&target, withShift[upTo(5)], Qt::ShiftModifier); break;
    case 2: QTest::keyClick(&target, withAlt[upTo(6)], Qt::AltModifier); break;
    default: QTest::keyClick(&target, plain[upTo(15)]); break;
    }
}

void RandomUser::type(QWidget& front)
{
    constexpr char letters[] = "0123456789.-e: \"\\#ax";
    QTest::keyClick(&keyboardOf(front), letters[upTo(sizeof letters - 1)]);
}

/// Replaces the text by one that is likely to be accepted.
void RandomUser::enter(QWidget& front)
{
    constexpr const char* entries[]{"1", "2.5", "0.01", "1000", "64", "0.0003", "12:30:00", "-3", "abc", "1e9"};
    QPointer<QWidget> target = &keyboardOf(front);
    QTest::keyClick(target, Qt::Key_A, Qt::ControlModifier);
    for (const char* letter = entries[upTo(10)]; *letter != '\0' && target; ++letter)
        QTest::keyClick(target, *letter);
    if (target && upTo(3) > 0)
        QTest::keyClick(target, upTo(2) == 0 ? Qt::Key_Tab : Qt::Key_Return);
}

} // namespace ko::test
