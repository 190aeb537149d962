#pragma once

#include <cstdint>

namespace ko {

// The numbers of samples in a recording.

/// Rounds a number of samples up to whole blocks of `blockSize` samples, at least one; a fraction is kept. A block size
/// below 1 leaves the number unchanged. Failure 6 when the number does not fit into 32 bits.
double wholeBlocks(double samples, std::int32_t blockSize);

/// Round a quotient to a whole number; one that differs from a whole number by no more than the rounding of the
/// division is that number.
double roundedUp(double quotient);
double roundedDown(double quotient);

} // namespace ko
