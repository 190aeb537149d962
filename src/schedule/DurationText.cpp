#include "schedule/DurationText.h"

#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "support/Phrases.h"

#include <cmath>

namespace ko {

namespace {

namespace planText = textNumber::plan;

constexpr std::int64_t secondsPerMinute = 60;
constexpr std::int64_t minutesPerHour = 60;
constexpr std::int64_t hoursPerDay = 24;
constexpr double secondsPerHour = 3600.0;
constexpr double secondsPerDay = 86400.0;

std::string unit(const Support& support, std::int64_t count, int number)
{
    if (number == planText::days)
        return counted(support, count, number);
    return filled(support.text(number), {countText(count, support.locale())});
}

std::string parts(const Support& support, std::int64_t count, std::int64_t perLarger, int larger, int smaller)
{
    std::string whole = unit(support, count / perLarger, larger);
    if (count % perLarger == 0)
        return whole;
    return filled(support.text(planText::twoUnits), {whole, unit(support, count % perLarger, smaller)});
}

} // namespace

std::string durationText(const Support& support, double seconds)
{
    if (toHundredths(seconds) < secondsPerMinute)
        return filled(support.text(planText::seconds), {shortNumber(support, seconds)});
    const std::int64_t wholeSeconds = std::llround(seconds);
    if (wholeSeconds < secondsPerMinute * minutesPerHour)
        return parts(support, wholeSeconds, secondsPerMinute, planText::minutes, planText::seconds);
    const std::int64_t wholeMinutes = std::llround(seconds / secondsPerMinute);
    if (wholeMinutes < minutesPerHour * hoursPerDay)
        return parts(support, wholeMinutes, minutesPerHour, planText::hours, planText::minutes);
    const std::int64_t wholeHours = std::llround(seconds / (secondsPerMinute * minutesPerHour));
    return parts(support, wholeHours, hoursPerDay, planText::days, planText::hours);
}

std::string shortNumber(const Support& support, double value)
{
    const double rounded = toHundredths(value);
    return numberText(rounded > 0.0 ? rounded : value, support.locale());
}

double wholeDuration(double seconds)
{
    if (seconds < secondsPerHour)
        return seconds;
    const double unit = seconds < secondsPerDay ? double{secondsPerMinute} : secondsPerHour;
    return std::floor(seconds / unit) * unit;
}

} // namespace ko
