#pragma once

#include "platform/Control.h"
#include "platform/DateTimes.h"

namespace ko {

/// A month calendar. A date set by the program raises `change`, too.
class Calendar : public Control {
public:
    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "MonthView"; }
    [[nodiscard]] bool takesFocus() const override { return true; }

    [[nodiscard]] int year() const { return year_; }
    [[nodiscard]] int month() const { return month_; }
    [[nodiscard]] int day() const { return day_; }
    /// Sets the whole date at once. Failure 5 for an invalid date.
    void setDate(int year, int month, int day);

    /// The user picks a date. Inert for an invalid date, and for one before 31 December 1899, whose day number would
    /// mean a time of day.
    Outcome userChose(int year, int month, int day);

    std::function<void()> change;

private:
    int year_ = 1900;
    int month_ = 1;
    int day_ = 1;
};

/// The format in which a selector shows a time of day.
struct TimeFormat {
    std::string picture = "h:mm:ss tt"; ///< as in `Locale`
    std::string amDesignator = "AM";
    std::string pmDesignator = "PM";

    bool operator==(const TimeFormat&) const = default;
};

/// A selector for a time of day.
class TimePicker : public Control {
public:
    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "DTPicker"; }
    [[nodiscard]] bool takesFocus() const override { return true; }

    [[nodiscard]] int hour() const { return hour_; }
    [[nodiscard]] int minute() const { return minute_; }
    [[nodiscard]] int second() const { return second_; }
    /// Failure 5 for an invalid time of day.
    void setTime(int hour, int minute, int second);

    [[nodiscard]] const TimeFormat& format() const { return format_; }
    void setFormat(const TimeFormat& format);

    /// The user picks a time. Inert for an invalid time.
    Outcome userChose(int hour, int minute, int second);

    std::function<void()> change;

private:
    int hour_ = 0;
    int minute_ = 0;
    int second_ = 0;
    TimeFormat format_;
};

} // namespace ko
