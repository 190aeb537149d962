#pragma once

#include "page/Page.h"
#include "support/Support.h"

#include <optional>

namespace ko {

/// When the recording starts and stops, by the page's contents, the figures of the last estimate and the clock.
struct Moments {
    DateTime now;
    /// With a date. A time of day is that of today, or of tomorrow when it has passed; before a stop with a date it is
    /// that of today. None unless the recording starts at a known time.
    std::optional<DateTime> start;
    /// The planned stop, and the one with the actual duration; none when unknown or beyond the valid years.
    std::optional<DateTime> plannedStop, actualStop;

    [[nodiscard]] bool isStartPast() const;
};

/// Whether the page stops at a date. A start at a time of day is then today's, even if it is past.
[[nodiscard]] bool stopsAtDate(const Page& page, const Locale& locale);

/// Calls no driver. Failures of the clock reach the caller.
Moments momentsOf(const Page& page, const Support& support);

/// "today" or "tomorrow"; empty for another day.
std::string dayName(const Support& support, const Moments& moments, DateTime time);

/// A date-time as "today, 9:30:00 AM", or with its date.
std::string dayAndTime(const Support& support, const Moments& moments, DateTime time);

/// How far a time is from now in whole minutes: "in 6 h 40 min" or "2 h ago".
std::string distanceText(const Support& support, const Moments& moments, DateTime time);

} // namespace ko
