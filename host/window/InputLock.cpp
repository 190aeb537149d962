#include "host/window/InputLock.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

namespace ko {

namespace {

bool isInput(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
    case QEvent::DragEnter:
    case QEvent::Drop: return true;
    // Dialogs that end are closed by the program.
    case QEvent::Close: return event.spontaneous();
    default: return false;
    }
}

bool isEscape(const QEvent& event)
{
    return event.type() == QEvent::Close ||
           (event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape);
}

} // namespace

InputLock::InputLock()
{
    QApplication::instance()->installEventFilter(this);
}

InputLock::~InputLock() = default;

bool InputLock::eventFilter(QObject* object, QEvent* event)
{
    const auto* const widget = qobject_cast<const QWidget*>(object);
    const bool isAction = event->type() == QEvent::Shortcut;
    if (!isInput(*event) || (!widget && !isAction) || (widget && qobject_cast<const QMessageBox*>(widget->window())))
        return false;
    escaped_ = escaped_ || isEscape(*event);
    // The toolkit asks a widget first whether it takes the key as text.
    event->setAccepted(event->type() == QEvent::ShortcutOverride);
    return true;
}

} // namespace ko
