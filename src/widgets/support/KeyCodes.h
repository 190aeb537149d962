#pragma once

#include <QKeyEvent>
#include <cstdint>

namespace ko {

/// The platform's code of a key; 0 for a key without one. Letters and digits are their own codes.
inline std::int16_t keyCodeOf(const QKeyEvent& event)
{
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9) || key == Qt::Key_Space)
        return static_cast<std::int16_t>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<std::int16_t>(112 + key - Qt::Key_F1);
    switch (key) {
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Return:
    case Qt::Key_Enter: return 13;
    case Qt::Key_Escape: return 27;
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return 46;
    default: return 0;
    }
}

/// 1 Shift, 2 Ctrl, 4 Alt, added up.
inline std::int16_t shiftStateOf(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers();
    return static_cast<std::int16_t>((held.testFlag(Qt::ShiftModifier) ? 1 : 0) +
                                     (held.testFlag(Qt::ControlModifier) ? 2 : 0) +
                                     (held.testFlag(Qt::AltModifier) ? 4 : 0));
}

} // namespace ko
