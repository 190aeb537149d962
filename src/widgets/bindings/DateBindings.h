#pragma once

#include "platform/DateControls.h"
#include "widgets/bindings/Binding.h"

#include <QCalendarWidget>
#include <QTimeEdit>

namespace ko {

/// A calendar. Leafing through the months picks nothing.
class CalendarBinding : public Binding {
public:
    CalendarBinding(FormView& view, Calendar& control, QCalendarWidget& widget);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;

private:
    void picked();
    void showDate();

    Calendar& calendar_;
    QCalendarWidget& widget_;
    bool showing_ = false;
};

/// A time edit that can be typed in with its separators, although a finished part leads on to the next by itself.
class TimeWidget : public QTimeEdit {
public:
    using QTimeEdit::QTimeEdit;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool hasAdvanced_ = false; ///< the last digit has completed a part and led on to the next
};

/// A selector for a time of day, which the control hears of while it is being typed. Tabbing goes to it and leaves it
/// as a whole; the arrow keys lead through its parts.
class TimePickerBinding : public Binding {
public:
    TimePickerBinding(FormView& view, TimePicker& control, QTimeEdit& widget);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;

private:
    void picked();
    void showFormat();
    void showTime();

    TimePicker& picker_;
    QTimeEdit& widget_;
    bool showing_ = false;
};

} // namespace ko
