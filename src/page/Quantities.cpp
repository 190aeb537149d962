#include "page/Quantities.h"

#include "support/Numbers.h"

#include <cmath>

namespace ko {

namespace {

std::optional<double> bound(double value)
{
    return value > 0.0 && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> reciprocalBound(double value)
{
    return value > 0.0 ? bound(1.0 / value) : std::nullopt;
}

// Bounds of periods in seconds and of their rates in 1/s; 0 means no bound.

NumberBounds periodBounds(Range periods)
{
    return {bound(periods.minimum), bound(periods.maximum), true};
}

NumberBounds rateBounds(Range periods)
{
    return {reciprocalBound(periods.maximum), reciprocalBound(periods.minimum), true};
}

} // namespace

double Quantity::shown(double held) const
{
    return isRate ? reciprocal(held) : held;
}

NumberBounds Quantity::bounds(const Page& page) const
{
    const Range range = (page.*number->offers).range;
    // Nothing is accepted, by the rate either.
    if (number->isPeriod && range.minimum > range.maximum)
        return {range.minimum, range.maximum, true};
    if (isRate)
        return rateBounds(range);
    return number->isPeriod ? periodBounds(range) : NumberBounds{range.minimum, range.maximum};
}

IndexedTimebase shownTimebase(const Page& page, const TimebaseNumber& number)
{
    const std::int32_t current = number.toAllDrivers ? page.staticDriverIndex : page.dynamicDriverIndex;
    if (Timebase* timebase = page.timebaseAt(current))
        return {current, timebase};
    if (!number.toAllDrivers)
        return {};
    const Drivers drivers = page.currentDrivers();
    const IndexedTimebase found =
        firstTimebase(drivers, [](Driver& driver, Timebase&) { return !isDynamicDriver(driver); });
    return found ? found : firstTimebase(drivers);
}

NumberSetting NumberSetting::read(const Steps& step, Timebase& timebase) const
{
    NumberSetting read{number, std::nullopt};
    step([&] { read.value = (timebase.*number->get)(); });
    return read;
}

SizeSettings NumberSetting::sizeSettings() const
{
    SizeSettings settings;
    if (number)
        settings.*number->size = value;
    return settings;
}

bool NumberSetting::write(const Steps& step, Timebase& timebase) const
{
    return !value || step([&] { (timebase.*number->set)(*value); });
}

} // namespace ko
