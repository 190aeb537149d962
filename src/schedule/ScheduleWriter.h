#pragma once

#include "page/NumberEntry.h"
#include "page/Timebases.h"
#include "support/Steps.h"

#include <optional>
#include <vector>

namespace ko {

/// A duration as a driver holds it, and the timebase that holds it; none for one that the page keeps itself.
struct Held {
    double value = 0.0;
    const Timebase* of = nullptr;
};

/// What is written to every driver in one go; what is not set stays as it is.
struct ScheduleChange {
    std::optional<float> duration; ///< seconds
    std::optional<DateTime> startTime;
    std::optional<std::int32_t> startMode;
    std::optional<std::int32_t> stopMode;
};

/// Writes a change to the timebases of all drivers and can take it back.
class ScheduleWriter {
public:
    /// Each driver's old values are read and kept first, but for a duration that is known to be held. Failures are
    /// reported to `step`.
    void write(const Steps& step, Drivers drivers, const ScheduleChange& change,
               const std::optional<Held>& duration = {});

    /// Makes room for what so many drivers hold, so that no write has to.
    void makeRoom(std::size_t drivers) { written_.reserve(drivers); }

    /// Gives each driver its own old values back; one whose reading failed is not written.
    void undo(const Steps& step);

private:
    struct Written {
        Timebase* timebase = nullptr;
        ScheduleChange before;
    };

    std::vector<Written> written_;
};

} // namespace ko
