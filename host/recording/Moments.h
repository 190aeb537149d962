#pragma once

#include "interfaces/Values.h"

#include <chrono>
#include <optional>
#include <string>

namespace ko {

/// A moment on the wall clock. The clock's own resolution would end in the year 2262.
using Moment = std::chrono::time_point<std::chrono::system_clock, std::chrono::microseconds>;

/// Returns the standing clock's time; the system clock's if there is none.
Moment momentNow(const std::optional<DateTime>& standing);

/// Returns `moment` plus `seconds`, at most the last day of the year 9999.
Moment later(Moment moment, double seconds);

/// Returns the moment at which the local clock shows this date and time. Fails with a `Failure` for an invalid one.
Moment momentOf(DateTime time);

/// Formats a moment as ISO 8601 in local time, always as long: "2026-11-21T09:30:00.000000+01:00".
std::string isoText(Moment moment);
inline constexpr std::size_t isoTextSize = 32;

/// The next moment, from `now` on, at which the local clock shows `time`, which may have no date. None if it is past.
std::optional<Moment> nextMoment(DateTime time, Moment now);

} // namespace ko
