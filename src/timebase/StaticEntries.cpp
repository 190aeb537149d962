#include "timebase/StaticEntries.h"

#include "page/Hints.h"
#include "support/Numbers.h"

#include <cmath>

namespace ko {

Range StaticEntry::hintOf(const NumberBounds& bounds)
{
    if (!bounds.minimum || !bounds.maximum)
        return {noRange, noRange};
    return {*bounds.minimum, *bounds.maximum};
}

double StaticEntry::scanPeriod()
{
    const Drivers drivers = page().currentDrivers();
    for (std::size_t i = drivers.size(); i > 0; --i)
        if (Timebase* timebase = drivers[i - 1] ? drivers[i - 1]->queryTimebase() : nullptr)
            return timebase->ScanPeriod();
    fail(failure::noObject);
}

void StaticEntry::acceptPeriod(const Steps& step, double seconds, double (*shown)(double))
{
    if (!std::isfinite(seconds))
        return;
    const StaticEditors::ScanPeriod result = editors_.pushTyped(step, seconds, box());
    if (!result.inForce)
        return;
    step([&] {
        if (result.rejected)
            showSelected(shown(*result.inForce));
        else
            show(shown(*result.inForce));
    });
}

StaticEditors::ScanRateEntry::ScanRateEntry(Page& page, Support& support, StaticEditors& editors)
    : StaticEntry(page, support, page.txtScanRate,
                  {"txtScanRate_GotFocus", "txtScanRate_LostFocus", "txtScanRate_Change", "txtScanRate_Validate"},
                  editors)
{
}

NumberBounds StaticEditors::ScanRateEntry::bounds()
{
    return rateBounds(page().scanPeriodRange);
}

double StaticEditors::ScanRateEntry::inForce()
{
    return reciprocal(scanPeriod());
}

double StaticEditors::ScanRateEntry::afterRefusal()
{
    return reciprocal(scanPeriodOfCurrent());
}

void StaticEditors::ScanRateEntry::accept(const Steps& step, double value)
{
    acceptPeriod(step, 1.0 / value, reciprocal);
}

Range StaticEditors::ScanRateEntry::hintRange()
{
    return hintOf(bounds());
}

StaticEditors::ScanPeriodEntry::ScanPeriodEntry(Page& page, Support& support, StaticEditors& editors)
    : StaticEntry(
          page, support, page.txtScanPeriod,
          {"txtScanPeriod_GotFocus", "txtScanPeriod_LostFocus", "txtScanPeriod_Change", "txtScanPeriod_Validate"},
          editors)
{
}

NumberBounds StaticEditors::ScanPeriodEntry::bounds()
{
    return periodBounds(page().scanPeriodRange);
}

double StaticEditors::ScanPeriodEntry::inForce()
{
    return scanPeriod();
}

double StaticEditors::ScanPeriodEntry::afterRefusal()
{
    return scanPeriodOfCurrent();
}

void StaticEditors::ScanPeriodEntry::accept(const Steps& step, double value)
{
    acceptPeriod(step, value, [](double period) { return period; });
}

Range StaticEditors::ScanPeriodEntry::hintRange()
{
    return hintOf(bounds());
}

} // namespace ko
