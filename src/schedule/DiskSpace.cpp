#include "schedule/DiskSpace.h"

namespace ko {

namespace {

bool fitsLimit(double bytes, bool hasDrivers)
{
    return (bytes > 0.0 || !hasDrivers) && bytes <= fileSizeLimit;
}

} // namespace

std::int32_t checkDiskSpace(const ByteTotals& totals, bool hasDynamicDrivers, bool hasStaticDrivers)
{
    if (!fitsLimit(totals.dynamicBytes, hasDynamicDrivers))
        return diskSpace::dynamicTooLarge;
    if (!fitsLimit(totals.staticBytes, hasStaticDrivers))
        return diskSpace::staticTooLarge;
    return diskSpace::fits;
}

} // namespace ko
