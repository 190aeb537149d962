#include "host/recording/Moments.h"

#include "platform/DateTimes.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <set>

namespace ko {

namespace {

/// Its year has four digits in every time zone.
constexpr Moment lastMoment{std::chrono::seconds(253402214400)};

std::tm localTime(Moment moment)
{
    const auto whole = std::chrono::floor<std::chrono::seconds>(moment);
    const auto seconds = static_cast<std::time_t>(whole.time_since_epoch().count());
    std::tm local{};
    localtime_r(&seconds, &local);
    return local;
}

/// What the local clock shows on a day at a time of day.
std::tm onDay(std::tm day, const DateParts& time)
{
    day.tm_hour = time.hour;
    day.tm_min = time.minute;
    day.tm_sec = time.second;
    return day;
}

std::tm dayOf(const DateParts& date)
{
    std::tm day{};
    day.tm_year = date.year - 1900;
    day.tm_mon = date.month - 1;
    day.tm_mday = date.day;
    return day;
}

/// Returns the first moment from `earliest` on at which the local clock shows this, else the last one. The clock shows
/// a time twice when summer time ends; one that it skips when summer time begins counts as winter time.
Moment momentAt(const std::tm& shown, Moment earliest)
{
    std::set<Moment> moments;
    for (const int summer : {0, 1, -1}) {
        std::tm local = shown;
        local.tm_isdst = summer;
        const Moment moment{std::chrono::seconds(std::mktime(&local))};
        const bool isSkipped = summer < 0 && moments.empty();
        if (local.tm_isdst == summer || isSkipped)
            moments.insert(moment);
    }
    const auto found = moments.lower_bound(earliest);
    return found == moments.end() ? *moments.rbegin() : *found;
}

} // namespace

Moment momentNow(const std::optional<DateTime>& standing)
{
    return standing ? momentOf(*standing) : std::chrono::floor<Moment::duration>(std::chrono::system_clock::now());
}

Moment later(Moment moment, double seconds)
{
    const std::chrono::duration<double> time(seconds);
    const Moment last = std::max(lastMoment, moment);
    return time < last - moment ? moment + std::chrono::round<Moment::duration>(time) : last;
}

Moment momentOf(DateTime time)
{
    const DateParts parts = dateParts(time);
    return momentAt(onDay(dayOf(parts), parts), Moment::min());
}

std::string isoText(Moment moment)
{
    const auto whole = std::chrono::floor<std::chrono::seconds>(moment);
    const auto micros = std::chrono::floor<std::chrono::microseconds>(moment - whole).count();
    const std::tm local = localTime(moment);
    char time[64], rest[64];
    std::strftime(time, sizeof time, "%Y-%m-%dT%H:%M:%S", &local);
    const long minutes = local.tm_gmtoff / 60;
    std::snprintf(rest, sizeof rest, ".%06ld%c%02ld:%02ld", static_cast<long>(micros), minutes < 0 ? '-' : '+',
                  std::labs(minutes) / 60, std::labs(minutes) % 60);
    return std::string(time) + rest;
}

std::optional<Moment> nextMoment(DateTime time, Moment now)
{
    const Moment second = std::chrono::floor<std::chrono::seconds>(now);
    const DateParts parts = dateParts(time);
    std::tm day = time.hasDate() ? dayOf(parts) : localTime(now);
    const Moment first = momentAt(onDay(day, parts), second);
    if (first >= second)
        return first;
    if (time.hasDate())
        return std::nullopt;
    ++day.tm_mday;
    return momentAt(onDay(day, parts), second);
}

} // namespace ko
