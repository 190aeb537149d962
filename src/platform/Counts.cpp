#include "platform/Counts.h"

#include "platform/NumberText.h"

#include <cmath>

namespace ko {

namespace {

bool isWhole(double quotient)
{
    const double whole = std::round(quotient);
    return std::abs(quotient - whole) <= 1e-14 * std::abs(whole);
}

} // namespace

double wholeBlocks(double samples, std::int32_t blockSize)
{
    const std::int32_t rounded = toLong(samples);
    if (blockSize < 1 || (samples >= blockSize && rounded % blockSize == 0))
        return samples;
    return samples - rounded % blockSize + blockSize;
}

double roundedUp(double quotient)
{
    return isWhole(quotient) ? std::round(quotient) : std::ceil(quotient);
}

double samplesIn(double seconds, double period, double blockSize)
{
    const double samples = seconds / period;
    return blockSize < 1.0 ? samples : roundedUp(samples / blockSize) * blockSize;
}

double scansIn(double seconds, double period)
{
    const double periods = seconds / period;
    return (isWhole(periods) ? std::round(periods) : std::floor(periods)) + 1.0;
}

} // namespace ko
