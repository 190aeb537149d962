#pragma once

#include "platform/DateControls.h"
#include "widgets/bindings/Binding.h"

#include <QCalendarWidget>
#include <QTimeEdit>

namespace ko {

/// A calendar. Changing the displayed month picks no date.
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

/// A selector for a time of day, which updates the control while the user types. Tab enters and leaves the whole
/// selector; the arrow keys move through its sections.
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
