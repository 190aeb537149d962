#pragma once

#include "page/Drivers.h"
#include "support/Support.h"
#include "support/TextNumbers.h"

namespace ko {

/// The maximum size in bytes of the file of a recording, for each kind of measurement.
inline constexpr double fileSizeLimit = 2147483647.0;

/// Codes of `Actions::updateDiskSpace`.
namespace diskSpace {
inline constexpr std::int32_t fits = 0;
inline constexpr std::int32_t dynamicTooLarge = textNumber::page::dynamicTooLarge - textNumber::page::block;
inline constexpr std::int32_t staticTooLarge = textNumber::page::staticTooLarge - textNumber::page::block;
} // namespace diskSpace

/// Compares the totals with the limit, the dynamic one first. A total that is NaN, or not positive although there are
/// drivers of its kind, counts as too large, because it indicates an overflow.
std::int32_t checkDiskSpace(const ByteTotals& totals, bool hasDynamicDrivers, bool hasStaticDrivers);

/// Rounds to two decimals, halves to even.
double toHundredths(double value);

/// Formats a byte count in bytes, KB, MB or GB, the larger units with at most two decimals.
std::string formatByteCount(const Support& support, double bytes);

} // namespace ko
