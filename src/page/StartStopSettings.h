#pragma once

#include "interfaces/Timebase.h"
#include "page/LimitRefusal.h"
#include "page/TriggerVars.h"
#include "support/Steps.h"

#include <cstdint>
#include <optional>

namespace ko {

/// The known start and stop settings of a recording, read from a driver or to be written to one. A member that is not
/// set could not be read, or is not to be written.
struct StartStopSettings {
    std::optional<std::int32_t> startMode;
    std::optional<DateTime> startTime;
    std::optional<std::int32_t> stopMode;
    std::optional<float> duration; ///< seconds

    [[nodiscard]] std::optional<double> seconds() const;

    /// The order in which the members are written.
    enum class Order : std::uint8_t {
        Edited, ///< for a user's change: duration, start time, then the modes
        Loaded  ///< for building the page: start mode, start time, stop mode, duration
    };

    /// Sets all four members from `vars`.
    static StartStopSettings of(const TriggerVars& vars)
    {
        return {vars.startMode, vars.startTime, vars.stopMode, vars.duration};
    }
    [[nodiscard]] bool isComplete() const { return startMode && startTime && stopMode && duration; }
    /// Takes members that are not set from `other`: the written values whose reading back failed.
    void complete(const StartStopSettings& other);
    /// Reads start mode, start time, stop mode and duration from the driver, in this order. Failures are reported to
    /// `step`.
    static StartStopSettings readAll(const Steps& step, Timebase& timebase);

    /// Reads those members from the driver that are set here. Failures are reported to `step`.
    [[nodiscard]] StartStopSettings read(const Steps& step, Timebase& timebase) const;

    /// Writes the members that are set; returns whether all writes succeeded. Failures are reported to `step`.
    bool write(const Steps& step, Timebase& timebase, Order order = Order::Edited) const;

    /// The members that are set here and not set or different in `other`.
    [[nodiscard]] StartStopSettings without(const StartStopSettings& other) const;
    [[nodiscard]] SizeSettings sizeSettings() const { return {.seconds = duration}; }
    [[nodiscard]] bool isEmpty() const { return !(startMode || startTime || stopMode || duration); }
    /// Whether the same members are set in both.
    [[nodiscard]] bool isLike(const StartStopSettings& other) const;
};

} // namespace ko
