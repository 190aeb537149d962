#pragma once

#include "page/Drivers.h"

namespace ko {

/// The largest file, in bytes, that a recording of one kind of measurement may become.
inline constexpr double fileSizeLimit = 2147483647.0;

/// Codes of `Actions::updateDiskSpace`.
namespace diskSpace {
inline constexpr std::int32_t fits = 0;
inline constexpr std::int32_t dynamicTooLarge = 70;
inline constexpr std::int32_t staticTooLarge = 72;
} // namespace diskSpace

/// Compares the totals with the limit, the dynamic one first. A total that is not positive although there are
/// drivers of its kind, or that is not a number, counts as too large: it signals an overflow.
std::int32_t checkDiskSpace(const ByteTotals& totals, bool hasDynamicDrivers, bool hasStaticDrivers);

} // namespace ko
