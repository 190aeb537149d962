#pragma once

#include <cstdint>

namespace ko {

// The numbers of samples in a recording.

/// Rounds a number of samples up to whole blocks of `blockSize` samples, at least one; a fraction is kept. A block size
/// below 1 leaves the number unchanged. Failure 6 when the number does not fit into 32 bits.
double wholeBlocks(double samples, std::int32_t blockSize);

/// Returns the quotient rounded up to a whole number, or to the nearest where only the rounding of the division keeps
/// it from that.
double roundedUp(double quotient);

/// Returns the number of samples that an instrument takes in this time, in whole blocks; a block size below 1 leaves it
/// unchanged.
double samplesIn(double seconds, double period, double blockSize);
/// Returns the number of scans that an instrument takes in this time, the one at its start included.
double scansIn(double seconds, double period);

} // namespace ko
