#include "widgets/bindings/DateBindings.h"

#include "platform/DatePictures.h"
#include "platform/Scoped.h"
#include "widgets/bindings/FormView.h"
#include "widgets/support/Guarded.h"

#include <QKeyEvent>
#include <QSpinBox>
#include <QTextCharFormat>
#include <algorithm>

namespace ko {

namespace {

/// The toolkit's format letters for one item of a picture.
QString displayLetters(const PictureItem& item)
{
    using Field = PictureItem::Field;
    const auto letters = [&](char letter) { return QString(item.width > 1 ? 2 : 1, QChar::fromLatin1(letter)); };
    switch (item.field) {
    case Field::hour12: return letters('h');
    case Field::hour24: return letters('H');
    case Field::minute: return letters('m');
    case Field::second: return letters('s');
    case Field::designator: return QStringLiteral("aP");
    case Field::literal: return u'\'' + toQt(item.text).replace(u'\'', QStringLiteral("''")) + u'\'';
    default: return {};
    }
}

bool isEnter(const QEvent& event)
{
    const int key = event.type() == QEvent::KeyPress ? static_cast<const QKeyEvent&>(event).key() : 0;
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Converts a picture to the toolkit's format.
QString displayFormat(const std::string& picture)
{
    QString format;
    for (const PictureItem& item : parsePicture(picture))
        format += displayLetters(item);
    return format;
}

bool hasDesignators(const QLocale& locale, const TimeFormat& format)
{
    return fromQt(locale.amText()) == format.amDesignator && fromQt(locale.pmText()) == format.pmDesignator;
}

/// The toolkit takes the designators from a locale; finds a locale with these designators, if any.
QLocale localeFor(const TimeFormat& format)
{
    const QLocale own;
    if (hasDesignators(own, format))
        return own;
    const auto all = QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    const auto found = std::find_if(all.begin(), all.end(), [&](const QLocale& locale) {
        return hasDesignators(locale, format) && locale.zeroDigit() == own.zeroDigit();
    });
    return found == all.end() ? own : *found;
}

} // namespace

CalendarBinding::CalendarBinding(FormView& view, Calendar& control, QCalendarWidget& widget)
    : Binding(view, control, widget), calendar_(control), widget_(widget)
{
    widget.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    widget.setDateEditEnabled(false);
    widget.setMinimumDate(QDate(1899, 12, 31));
    // The toolkit's red for weekends is not from the palette and remains when the calendar is disabled.
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        widget.setWeekdayTextFormat(day, QTextCharFormat());
    for (QWidget* part : widget.findChildren<QWidget*>())
        part->installEventFilter(this);
    onSignal(&widget, &QCalendarWidget::selectionChanged, this, [this] { picked(); });
    refreshAll();
}

void CalendarBinding::picked()
{
    if (showing_)
        return;
    const QDate date = widget_.selectedDate();
    if (view_.act([&] { calendar_.userChose(date.year(), date.month(), date.day()); }))
        showDate();
}

void CalendarBinding::showDate()
{
    const Scoped guard(showing_, true);
    widget_.setSelectedDate(QDate(calendar_.year(), calendar_.month(), calendar_.day()));
}

void CalendarBinding::refresh(Aspect aspect)
{
    if (aspect == Aspect::Text)
        showDate();
    else
        Binding::refresh(aspect);
}

bool CalendarBinding::eventFilter(QObject* object, QEvent* event)
{
    if (!isEnter(*event))
        return false;
    if (object == widget_.focusProxy()) {
        // Leave Enter to the dialog's default button.
        event->ignore();
        return true;
    }
    if (!qobject_cast<QSpinBox*>(object))
        return false;
    // The key only ends the typing of a year.
    widget_.setFocus();
    return true;
}

TimePickerBinding::TimePickerBinding(FormView& view, TimePicker& control, QTimeEdit& widget)
    : Binding(view, control, widget), picker_(control), widget_(widget)
{
    widget.installEventFilter(this);
    onSignal(&widget, &QTimeEdit::timeChanged, this, [this] { picked(); });
    refreshAll();
}

void TimePickerBinding::picked()
{
    if (showing_)
        return;
    const QTime time = widget_.time();
    if (view_.act([&] { picker_.userChose(time.hour(), time.minute(), time.second()); }))
        showTime();
}

void TimePickerBinding::showFormat()
{
    const Scoped guard(showing_, true);
    widget_.setLocale(localeFor(picker_.format()));
    widget_.setDisplayFormat(displayFormat(picker_.format().picture));
}

void TimePickerBinding::showTime()
{
    const QTime time(picker_.hour(), picker_.minute(), picker_.second());
    const Scoped guard(showing_, true);
    // Do not overwrite what the user is typing.
    if (widget_.time() != time)
        widget_.setTime(time);
}

void TimePickerBinding::refresh(Aspect aspect)
{
    if (aspect == Aspect::Text)
        showTime();
    else if (aspect == Aspect::Items)
        showFormat();
    else
        Binding::refresh(aspect);
}

bool TimePickerBinding::eventFilter(QObject*, QEvent* event)
{
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
        return view_.focus().step(key == Qt::Key_Tab);
    // The wheel changes the time only in a focused selector.
    if (event->type() != QEvent::Wheel || widget_.hasFocus())
        return false;
    event->ignore();
    return true;
}

} // namespace ko
