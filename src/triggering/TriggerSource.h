#pragma once

#include "interfaces/Driver.h"
#include "support/Steps.h"

#include <vector>

namespace ko {

class TriggerParameters;

/// The channel of the start master that triggers the recording; a channel or slot of -1 means a whole group or driver.
struct TriggerSource {
    std::int32_t slot = -1, channel = -1;

    [[nodiscard]] bool isChannel() const { return slot >= 0 && channel >= 0; }
    bool operator==(const TriggerSource&) const = default;
};

/// Reads and writes the flags by which a driver marks its trigger source. Failures are reported to the steps.
class SourceSwitches {
public:
    using Sources = std::vector<TriggerSource>;

    SourceSwitches(const Steps& step, Driver& driver, TriggerParameters& parameters)
        : step_(step), driver_(driver), parameters_(parameters)
    {
    }

    /// The channels that the driver marks, except `known`.
    [[nodiscard]] Sources markedBesides(const Sources& known) const;

    /// Switches one channel; returns whether the driver accepted the write.
    bool set(const TriggerSource& source, bool on) const;

    /// Switches one channel and reads it back; returns whether the driver then marks it. When reading back fails, the
    /// result of the write counts.
    bool write(const TriggerSource& source, bool on) const;

    /// Switches `from` off and `to` on, because a driver has one trigger source. If `to` does not become the source,
    /// switches the first of `from` on again, unless the driver still marks a channel. Returns the resulting source; no
    /// channel when it is unknown.
    [[nodiscard]] TriggerSource move(const Sources& from, const TriggerSource& to) const;

private:
    const Steps& step_;
    Driver& driver_;
    TriggerParameters& parameters_;
};

} // namespace ko
