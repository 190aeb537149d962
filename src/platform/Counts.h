#pragma once

#include <cstdint>

namespace ko {

// The numbers of samples in a recording.

/// Rounds a number of samples up to whole blocks of `blockSize` samples, at least one; a fraction is kept. A block size
/// below 1 leaves the number unchanged. Failure 6 when the number does not fit into 32 bits.
double wholeBlocks(double samples, std::int32_t blockSize);

/// The number of the first sample not before this many periods; a sample that only rounding places before it counts.
double firstNotBefore(double periods);

} // namespace ko
