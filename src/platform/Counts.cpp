#include "platform/Counts.h"

#include "platform/NumberText.h"

#include <cmath>

namespace ko {

double wholeBlocks(double samples, std::int32_t blockSize)
{
    const std::int32_t rounded = toLong(samples);
    if (blockSize < 1 || (samples >= blockSize && rounded % blockSize == 0))
        return samples;
    return samples - rounded % blockSize + blockSize;
}

double firstNotBefore(double periods)
{
    const double whole = std::round(periods);
    return std::abs(periods - whole) <= 1e-14 * std::abs(whole) ? whole : std::ceil(periods);
}

} // namespace ko
