#include "timebase/Readings.h"

#include "page/Differences.h"

namespace ko {

namespace {

void readNames(Page& page, const Steps& step)
{
    const Drivers drivers = page.currentDrivers();
    page.driverNames.assign(drivers.size(), {});
    for (std::size_t i = 0; i < drivers.size() && !step.isOver(); ++i)
        if (drivers[i])
            page.driverNames[i] = step.value([&] { return drivers[i]->DriverName(0); });
}

void readNumber(Page& page, const Steps& step, const TimebaseNumber& number, IndexedTimebase at)
{
    std::optional<double> held;
    step([&] { held = (at.timebase->*number.get)(); });
    if (!step.isSuperseded())
        (page.*number.offers).noteRead(at.driver, held);
}

} // namespace

void readOtherDrivers(Page& page, const Steps& step)
{
    readNames(page, step);
    const Drivers drivers = page.currentDrivers();
    for (std::size_t i = 0; i < drivers.size() && !step.isOver(); ++i) {
        const auto driver = static_cast<std::int32_t>(i);
        if (driver == page.dynamicDriverIndex || !isUsedBy(page, timebaseNumber::samplePeriod, i))
            continue;
        if (Timebase* timebase = step.value([&] { return drivers[i]->queryTimebase(); }))
            for (const TimebaseNumber* number : timebaseNumber::all)
                if (!number->toAllDrivers)
                    readNumber(page, step, *number, {driver, timebase});
    }
}

std::vector<StartStopSettings> readEveryDriver(Page& page, const Steps& step)
{
    readNames(page, step);
    const Drivers drivers = page.currentDrivers();
    std::vector<StartStopSettings> settings(drivers.size());
    forEachTimebase(step, drivers, [&](IndexedTimebase at) {
        for (const TimebaseNumber* number : timebaseNumber::all)
            readNumber(page, step, *number, at);
        settings[static_cast<std::size_t>(at.driver)] = StartStopSettings::readAll(step, *at.timebase);
    });
    return settings;
}

} // namespace ko
