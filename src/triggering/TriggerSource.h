#pragma once

#include "interfaces/Driver.h"
#include "support/Steps.h"

#include <vector>

namespace ko {

class TriggerParameters;

/// A channel of the start master that starts the recording; without a channel it is a whole group or driver.
struct TriggerSource {
    std::int32_t slot = -1, channel = -1;

    [[nodiscard]] bool isChannel() const { return slot >= 0 && channel >= 0; }
    bool operator==(const TriggerSource&) const = default;
};

/// The switches by which a driver marks its trigger source. Failures are reported to the steps.
class SourceSwitches {
public:
    using Sources = std::vector<TriggerSource>;

    SourceSwitches(const Steps& step, Driver& driver, TriggerParameters& parameters)
        : step_(step), driver_(driver), parameters_(parameters)
    {
    }

    /// The channels besides these that the driver marks.
    [[nodiscard]] Sources markedBesides(const Sources& known) const;

    /// Switches one channel: whether the driver took the write.
    bool set(const TriggerSource& source, bool on) const;

    /// Switches one channel, and reads it back: whether the driver marks it then. Where it cannot be read back the
    /// write counts.
    bool write(const TriggerSource& source, bool on) const;

    /// A driver has one trigger source: these are switched off, and `to` is switched on. Where that one does not
    /// become the source, the first of `from` is switched on again unless the driver still marks a channel. The channel
    /// that counts afterwards; none where that is unknown.
    [[nodiscard]] TriggerSource move(const Sources& from, const TriggerSource& to) const;

private:
    const Steps& step_;
    Driver& driver_;
    TriggerParameters& parameters_;
};

} // namespace ko
