#include "schedule/Moments.h"

#include "platform/DateTimes.h"
#include "schedule/DurationText.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"

#include <cmath>

namespace ko {

namespace {

namespace timesText = textNumber::times;

DateTime nextTime(DateTime now, DateTime time)
{
    const DateTime today{datePart(now).days + timePart(time).days};
    return dateDiffSeconds(now, today) < 0.0 ? DateTime{today.days + 1.0} : today;
}

std::optional<DateTime> startOf(const Page& page, const Support& support, DateTime now)
{
    if (!page.optStartTime.value() || page.txtStartTime.text().empty())
        return std::nullopt;
    const DateTime time = toDateTime(page.txtStartTime.text(), support.locale());
    if (time.hasDate())
        return time;
    if (stopsAtDate(page, support.locale()))
        return DateTime{datePart(now).days + timePart(time).days};
    return nextTime(now, time);
}

std::optional<DateTime> later(std::optional<DateTime> start, std::optional<double> seconds)
{
    if (!start || !seconds || *seconds < 0.0)
        return std::nullopt;
    if (!isInValidYears({start->days + *seconds / secondsPerUnit(TimeUnit::days)}))
        return std::nullopt;
    return dateAdd(TimeUnit::seconds, *seconds, *start);
}

} // namespace

bool Moments::isStartPast() const
{
    return start && dateDiffSeconds(now, *start) < 0.0;
}

bool stopsAtDate(const Page& page, const Locale& locale)
{
    const std::string& stop = page.txtStopTime.text();
    return page.optStopTime.value() && !stop.empty() && toDateTime(stop, locale).hasDate();
}

Moments momentsOf(const Page& page, const Support& support)
{
    Moments moments;
    if (page.numDrivers <= 0 || !page.optStartTime.value())
        return moments;
    moments.now = support.platform.clock.now();
    moments.start = startOf(page, support, moments.now);
    moments.plannedStop = later(moments.start, page.figures.plannedSeconds);
    moments.actualStop = later(moments.start, page.figures.actualSeconds);
    return moments;
}

std::string dayName(const Support& support, const Moments& moments, DateTime time)
{
    const double days = datePart(time).days - datePart(moments.now).days;
    if (days == 0.0)
        return support.text(timesText::today);
    return days == 1.0 ? support.text(timesText::tomorrow) : std::string();
}

std::string dayAndTime(const Support& support, const Moments& moments, DateTime time)
{
    const std::string day = dayName(support, moments, time);
    if (day.empty())
        return generalDate(time, support.locale());
    return filled(support.text(timesText::dayAndTime), {day, generalDate(timePart(time), support.locale())});
}

std::string distanceText(const Support& support, const Moments& moments, DateTime time)
{
    constexpr double minute = 60.0;
    const double seconds = dateDiffSeconds(moments.now, time);
    const double length = std::floor(std::abs(seconds) / minute) * minute;
    const std::string text = length > 0.0 ? durationText(support, length) : support.text(timesText::belowAMinute);
    return filled(support.text(seconds < 0.0 ? timesText::ago : timesText::in), {text});
}

} // namespace ko
