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

double roundedDown(double quotient)
{
    return isWhole(quotient) ? std::round(quotient) : std::floor(quotient);
}

} // namespace ko
