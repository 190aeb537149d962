#include "schedule/DiskSpace.h"

#include "platform/NumberText.h"

#include <cmath>

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

double toHundredths(double value)
{
    const double hundredths = value * 100.0;
    return (hundredths - std::remainder(hundredths, 1.0)) / 100.0;
}

std::string formatByteCount(const Support& support, double bytes)
{
    namespace pageText = textNumber::page;
    constexpr struct {
        double bytes;
        int text;
    } units[] = {{1073741824.0, pageText::gigabytes}, {1048576.0, pageText::megabytes}, {1024.0, pageText::kilobytes}};
    for (const auto& unit : units)
        if (bytes > unit.bytes)
            return numberText(toHundredths(bytes / unit.bytes), support.locale()) + support.text(unit.text);
    return numberText(bytes, support.locale()) + support.text(pageText::bytes);
}

} // namespace ko
