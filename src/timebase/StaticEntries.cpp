#include "timebase/StaticEntries.h"

#include "page/Hints.h"
#include "support/Numbers.h"

namespace ko {

const StaticEntry::Kind StaticEntry::scanRate{
    {"txtScanRate_GotFocus", "txtScanRate_LostFocus", "txtScanRate_Change", "txtScanRate_Validate"},
    rateBounds,
    reciprocal};

const StaticEntry::Kind StaticEntry::scanPeriod{
    {"txtScanPeriod_GotFocus", "txtScanPeriod_LostFocus", "txtScanPeriod_Change", "txtScanPeriod_Validate"},
    periodBounds,
    itself};

std::optional<Held> StaticEntry::held()
{
    const Drivers drivers = page().currentDrivers();
    for (std::size_t i = drivers.size(); i > 0; --i)
        if (Timebase* timebase = drivers[i - 1] ? drivers[i - 1]->queryTimebase() : nullptr)
            return Held{timebase->ScanPeriod(), timebase};
    return std::nullopt;
}

std::optional<double> StaticEntry::heldAfterRefusal()
{
    Timebase* timebase = page().timebaseAt(page().staticDriverIndex);
    return timebase ? timebase->ScanPeriod() : NumberEntry::heldAfterRefusal();
}

Range StaticEntry::hintRange()
{
    const NumberBounds range = bounds();
    if (!range.minimum || !range.maximum)
        return {noRange, noRange};
    return {*range.minimum, *range.maximum};
}

void StaticEntry::accept(const Steps& step, double value, const std::optional<Held>& before)
{
    const StaticEditors::ScanPeriod result = editors_.pushTyped(step, kind_.converted(value), before, box());
    if (!result.inForce)
        return;
    step([&] {
        if (result.rejected)
            showSelected(*result.inForce);
        else
            show(*result.inForce);
    });
}

} // namespace ko
