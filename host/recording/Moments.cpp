#include "host/recording/Moments.h"

#include "platform/DateTimes.h"

#include <cstdio>
#include <ctime>

namespace ko {

namespace {

std::tm localTime(Moment moment)
{
    const auto whole = std::chrono::floor<std::chrono::seconds>(moment);
    const auto seconds = static_cast<std::time_t>(whole.time_since_epoch().count());
    std::tm local{};
    localtime_r(&seconds, &local);
    return local;
}

/// The moment of a time of day, some days after the day of `moment`.
Moment onDayOf(Moment moment, int days, DateTime time)
{
    const DateParts parts = dateParts(time);
    std::tm local = localTime(moment);
    local.tm_mday += days;
    local.tm_hour = parts.hour;
    local.tm_min = parts.minute;
    local.tm_sec = parts.second;
    local.tm_isdst = -1;
    return Moment(std::chrono::seconds(std::mktime(&local)));
}

} // namespace

Moment momentNow(const std::optional<DateTime>& standing)
{
    return standing ? momentOf(*standing) : std::chrono::floor<Moment::duration>(std::chrono::system_clock::now());
}

Moment later(Moment moment, double seconds)
{
    using std::chrono::duration;
    return moment + std::chrono::round<Moment::duration>(duration<double>(seconds));
}

Moment momentOf(DateTime time)
{
    const DateParts parts = dateParts(time);
    std::tm local{};
    local.tm_year = parts.year - 1900;
    local.tm_mon = parts.month - 1;
    local.tm_mday = parts.day;
    local.tm_hour = parts.hour;
    local.tm_min = parts.minute;
    local.tm_sec = parts.second;
    local.tm_isdst = -1;
    return Moment(std::chrono::seconds(std::mktime(&local)));
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
    if (time.hasDate()) {
        const Moment moment = momentOf(time);
        return moment < second ? std::nullopt : std::optional(moment);
    }
    const Moment today = onDayOf(now, 0, time);
    return today < second ? onDayOf(now, 1, time) : today;
}

} // namespace ko
