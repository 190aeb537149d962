#pragma once

#include "platform/Control.h"
#include "platform/DateTimes.h"

namespace ko {

/// A month calendar. A date that the program sets counts as a change, too.
class Calendar : public Control {
public:
    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "MonthView"; }
    [[nodiscard]] bool takesFocus() const override { return true; }

    [[nodiscard]] int year() const { return year_; }
    [[nodiscard]] int month() const { return month_; }
    [[nodiscard]] int day() const { return day_; }
    /// Takes the date as a whole. Failure 5 for a date that is none.
    void setDate(int year, int month, int day);

    /// The user picks a date; one that is none is inert, and so is one before 31 December 1899, whose day number
    /// would be that of a time of day.
    Outcome userChose(int year, int month, int day);

    std::function<void()> change;

private:
    int year_ = 1900;
    int month_ = 1;
    int day_ = 1;
};

/// How a selector shows a time of day.
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
    /// Failure 5 for a time of day that is none.
    void setTime(int hour, int minute, int second);

    [[nodiscard]] const TimeFormat& format() const { return format_; }
    void setFormat(const TimeFormat& format);

    /// The user picks a time; one that is none is inert.
    Outcome userChose(int hour, int minute, int second);

    std::function<void()> change;

private:
    int hour_ = 0;
    int minute_ = 0;
    int second_ = 0;
    TimeFormat format_;
};

} // namespace ko
