#pragma once

#include "support/Support.h"

#include <string>

namespace ko {

/// A duration of 0 s or more as a person says it, in its two largest units: "2 h 8 min". Below a minute it is rounded
/// to two decimals, unless that would yield 0. Failures reach the caller.
std::string durationText(const Support& support, double seconds);

/// A number rounded to two decimals, unless that would yield 0.
std::string shortNumber(const Support& support, double value);

/// The longest duration, not longer than `seconds`, that `durationText` names exactly from an hour on.
double wholeDuration(double seconds);

} // namespace ko
