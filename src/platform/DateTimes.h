#pragma once

#include "interfaces/Values.h"
#include "platform/Locale.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ko {

/// Calendar arithmetic on local wall-clock times; daylight saving changes are ignored. Valid dates are those of the
/// years 100 to 9999 (proleptic Gregorian). The fraction of a day number before day 0 still counts forward: -1.25 is 29
/// December 1899, 06:00. All functions work in whole seconds: a time is first rounded to the nearest one, so that the
/// last half second of a day belongs to the next day; only on day 0, which is not a date, it stays on that day.

struct DateParts {
    int year = 1899, month = 12, day = 30;
    int hour = 0, minute = 0, second = 0;

    bool operator==(const DateParts&) const = default;
};

/// Whether all functions below accept the date-time.
bool isInValidYears(DateTime time) noexcept;

/// The parts to the nearest second. Failure 5 outside the valid years or for a value that is not a number.
DateParts dateParts(DateTime time);

/// The date at midnight. Months and days outside their range carry over (day 0 is the last day of the previous month).
/// Failure 5 outside the valid years.
DateTime dateSerial(int year, int month, int day);

/// The time of day as fraction of a day; parts outside their range carry over, finally into whole days counted from day
/// 0. Failure 5 when the result leaves the valid years.
DateTime timeSerial(int hour, int minute, int second);

/// The date part (a whole day number) and the time-of-day part (0 to below 1) of a date-time. Failure 5 as for
/// `dateParts`.
DateTime datePart(DateTime time);
DateTime timePart(DateTime time);

/// Units of durations, shortest first.
enum class TimeUnit : std::uint8_t { seconds, minutes, hours, days };

/// The length of a unit in seconds.
std::int32_t secondsPerUnit(TimeUnit unit);

/// `time` plus `amount` units. Fractional amounts count exactly, to the nearest second (halves away from 0).
/// Failure 5 when the result leaves the valid years or the amount is not a number.
DateTime dateAdd(TimeUnit unit, double amount, DateTime time);

/// Whole seconds from `from` to `to`, negative when `to` is earlier. Failure 5 as for `dateParts`.
double dateDiffSeconds(DateTime from, DateTime to);

/// The "General Date" text: the short date and the time; the date alone at midnight, the time alone on day 0; 0 is
/// "12:00:00 AM". Dates before day 0 are shown. The format depends only on the locale's two pictures; a two-digit year
/// is written with four digits outside 1930 to 2029. Failure 5 outside the valid years.
std::string generalDate(DateTime time, const Locale& locale);

/// Reads a date, a time, or a date followed by blanks and a time; surrounding blanks are ignored. Failure 13 for any
/// other text.
///
/// A date follows the locale's picture, or its order of year, month and day separated by / - or .; ISO dates
/// (2026-11-21) are read in every locale. Years of one or two digits are those of 1930 to 2029. A time follows the
/// locale's picture, or is hours, minutes and optional seconds with the locale's separator or colons, in 24 hours or
/// with a designator (the locale's or AM and PM, in either case) before or after it. Text that is both a valid time and
/// a valid date, as in locales that write both with points, is read as a time.
DateTime toDateTime(std::string_view text, const Locale& locale);

} // namespace ko
