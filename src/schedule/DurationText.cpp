#include "schedule/DurationText.h"

#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"

#include <cmath>

namespace ko {

namespace {

namespace planText = textNumber::plan;

constexpr std::int64_t secondsPerMinute = 60;
constexpr std::int64_t minutesPerHour = 60;
constexpr std::int64_t hoursPerDay = 24;

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

bool isCountable(const std::optional<double>& seconds)
{
    constexpr double longest = 1e15;
    return seconds && *seconds >= 0.0 && *seconds < longest;
}

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

} // namespace ko
