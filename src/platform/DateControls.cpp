#include "platform/DateControls.h"

#include "platform/Failure.h"
#include "platform/Form.h"

#include <chrono>

namespace ko {

namespace {

bool isDate(int year, int month, int day)
{
    using namespace std::chrono;
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31)
        return false;
    return year_month_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                          std::chrono::day(static_cast<unsigned>(day)))
        .ok();
}

bool isTime(int hour, int minute, int second)
{
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
}

/// For example "2026-11-24" or "15:04:05".
std::string joined(int first, int second, int third, char separator)
{
    const auto twoDigits = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    return twoDigits(first) + separator + twoDigits(second) + separator + twoDigits(third);
}

} // namespace

void Calendar::setDate(int year, int month, int day)
{
    if (!isDate(year, month, day))
        fail(failure::invalidCall);
    if (year_ == year && month_ == month && day_ == day)
        return;
    year_ = year;
    month_ = month;
    day_ = day;
    tellView(Aspect::Text);
    raise(change);
}

Outcome Calendar::userChose(int year, int month, int day)
{
    if (!isUsable() || !isDate(year, month, day) || !dateSerial(year, month, day).hasDate())
        return Outcome::Inert;
    form().tellUserActs("text", name(), joined(year, month, day, '-'));
    setDate(year, month, day);
    return Outcome::Done;
}

void TimePicker::setTime(int hour, int minute, int second)
{
    if (!isTime(hour, minute, second))
        fail(failure::invalidCall);
    if (hour_ == hour && minute_ == minute && second_ == second)
        return;
    hour_ = hour;
    minute_ = minute;
    second_ = second;
    tellView(Aspect::Text);
    raise(change);
}

void TimePicker::setFormat(const TimeFormat& format)
{
    if (format_ == format)
        return;
    format_ = format;
    tellView(Aspect::Items);
}

Outcome TimePicker::userChose(int hour, int minute, int second)
{
    if (!isUsable() || !isTime(hour, minute, second))
        return Outcome::Inert;
    form().tellUserActs("text", name(), joined(hour, minute, second, ':'));
    setTime(hour, minute, second);
    return Outcome::Done;
}

} // namespace ko
