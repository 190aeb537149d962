#pragma once

#include "support/Support.h"

namespace ko {

/// Whether a duration is known and `durationText` has a text for it.
bool isCountable(const std::optional<double>& seconds);

/// A duration of at least 0 seconds in its two largest units, as "1 min 30 s".
std::string durationText(const Support& support, double seconds);

/// A number with at most two decimals, more if it would otherwise be 0.
std::string shortNumber(const Support& support, double value);

} // namespace ko
