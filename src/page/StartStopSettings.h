#pragma once

#include "interfaces/Timebase.h"
#include "page/TriggerVars.h"
#include "support/Steps.h"

#include <cstdint>
#include <optional>

namespace ko {

/// Start and stop of a recording as far as they are known, read from a driver or to be written to one. A member that
/// is not set could not be read, or stays as the driver has it.
struct StartStopSettings {
    std::optional<std::int32_t> startMode;
    std::optional<DateTime> startTime;
    std::optional<std::int32_t> stopMode;
    std::optional<float> duration; ///< seconds

    [[nodiscard]] std::optional<double> seconds() const;

    /// The order in which the members are written.
    enum class Order : std::uint8_t {
        Edited, ///< of a user's change: duration, start time, then the modes
        Loaded  ///< of a page that is built: start mode, start time, stop mode, duration
    };

    /// All four members of a copy.
    static StartStopSettings of(const TriggerVars& vars)
    {
        return {vars.startMode, vars.startTime, vars.stopMode, vars.duration};
    }
    [[nodiscard]] bool isComplete() const { return startMode && startTime && stopMode && duration; }
    /// Members that are not set are taken from `other`: what was written where reading it back failed.
    void complete(const StartStopSettings& other);
    /// All members as the driver has them: start mode, start time, stop mode, duration, in this order. Failures are
    /// reported to `step`.
    static StartStopSettings readAll(const Steps& step, Timebase& timebase);

    /// The members that are set here, as the driver has them. Failures are reported to `step`.
    [[nodiscard]] StartStopSettings read(const Steps& step, Timebase& timebase) const;

    /// Writes the members that are set; whether all writes succeeded. Failures are reported to `step`.
    bool write(const Steps& step, Timebase& timebase, Order order = Order::Edited) const;

    /// The members that are set here and that `other` lacks or has otherwise.
    [[nodiscard]] StartStopSettings without(const StartStopSettings& other) const;
    [[nodiscard]] bool isEmpty() const { return !(startMode || startTime || stopMode || duration); }
};

} // namespace ko
