#include "platform/DateTimes.h"

#include "platform/Failure.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace ko {

namespace {

using Seconds = std::int64_t;

constexpr std::int64_t secondsPerDay = 86400;
constexpr std::int64_t firstDay = -657434;  // 1 January 100
constexpr std::int64_t lastDay = 2958465;   // 31 December 9999
constexpr std::int64_t systemEpoch = 25569; // 1 January 1970

constexpr std::int64_t floorDivide(std::int64_t dividend, std::int64_t divisor)
{
    const std::int64_t quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

[[noreturn]] void failOutside()
{
    throw Failure(failure::invalidCall, "The date is outside of the years 100 to 9999");
}

bool areInValidYears(Seconds seconds)
{
    return seconds >= firstDay * secondsPerDay && seconds < (lastDay + 1) * secondsPerDay;
}

Seconds inValidYears(Seconds seconds)
{
    if (!areInValidYears(seconds))
        failOutside();
    return seconds;
}

constexpr double reach = 4e6; // days; beyond every valid day, well within the range of integers

/// Whole seconds since the start of day 0; unlike day numbers they are monotonic before it.
Seconds roundedSeconds(DateTime time)
{
    const double day = std::trunc(time.days);
    const Seconds ofDay = std::llround(std::abs(time.days - day) * static_cast<double>(secondsPerDay));
    // A time of day must not be rounded up into a date.
    return static_cast<Seconds>(day) * secondsPerDay + (day == 0.0 ? std::min(ofDay, secondsPerDay - 1) : ofDay);
}

Seconds toSeconds(DateTime time)
{
    if (!isInValidYears(time))
        failOutside();
    return roundedSeconds(time);
}

DateTime fromSeconds(Seconds seconds)
{
    const std::int64_t day = floorDivide(inValidYears(seconds), secondsPerDay);
    const double timeOfDay = static_cast<double>(seconds - day * secondsPerDay) / static_cast<double>(secondsPerDay);
    return {static_cast<double>(day) + (day < 0 ? -timeOfDay : timeOfDay)};
}

} // namespace

bool isInValidYears(DateTime time) noexcept
{
    return std::abs(time.days) < reach && areInValidYears(roundedSeconds(time));
}

DateParts dateParts(DateTime time)
{
    using namespace std::chrono;
    const Seconds seconds = toSeconds(time);
    const std::int64_t day = floorDivide(seconds, secondsPerDay);
    const auto ofDay = static_cast<int>(seconds - day * secondsPerDay);
    const year_month_day date(sys_days(days(day - systemEpoch)));
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            ofDay / 3600,
            ofDay / 60 % 60,
            ofDay % 60};
}

DateTime dateSerial(int year, int month, int day)
{
    using namespace std::chrono;
    constexpr std::int64_t mostYears = 30000; // years that the calendar arithmetic supports
    const std::int64_t monthsBefore = static_cast<std::int64_t>(month) - 1;
    const std::int64_t carriedYear = year + floorDivide(monthsBefore, 12);
    if (std::abs(carriedYear) > mostYears)
        failOutside();
    const auto monthInYear = static_cast<unsigned>(monthsBefore - floorDivide(monthsBefore, 12) * 12) + 1;
    const sys_days first = year_month_day(std::chrono::year(static_cast<int>(carriedYear)),
                                          std::chrono::month(monthInYear), std::chrono::day(1));
    return fromSeconds((first.time_since_epoch().count() + systemEpoch + day - 1) * secondsPerDay);
}

DateTime timeSerial(int hour, int minute, int second)
{
    return fromSeconds(static_cast<Seconds>(hour) * 3600 + static_cast<Seconds>(minute) * 60 + second);
}

DateTime datePart(DateTime time)
{
    return {static_cast<double>(floorDivide(toSeconds(time), secondsPerDay))};
}

DateTime timePart(DateTime time)
{
    const Seconds seconds = toSeconds(time);
    return fromSeconds(seconds - floorDivide(seconds, secondsPerDay) * secondsPerDay);
}

std::int32_t secondsPerUnit(TimeUnit unit)
{
    constexpr std::array<std::int32_t, 4> seconds{1, 60, 3600, 86400};
    return seconds.at(static_cast<std::size_t>(unit));
}

DateTime dateAdd(TimeUnit unit, double amount, DateTime time)
{
    constexpr double mostSeconds = 1e12; // seconds; more than between any two valid times
    const double seconds = amount * secondsPerUnit(unit);
    if (!(std::abs(seconds) < mostSeconds))
        failOutside();
    return fromSeconds(toSeconds(time) + std::llround(seconds));
}

double dateDiffSeconds(DateTime from, DateTime to)
{
    return static_cast<double>(toSeconds(to) - toSeconds(from));
}

} // namespace ko
