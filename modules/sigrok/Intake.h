#pragma once

#include "host/instruments/Acquisition.h"

#include <span>

namespace ko::sigrok {

/// Makes blocks of what the channels of a device deliver, on the thread of its session. Times are in seconds after the
/// origin of the recording. Channels are those of the recording, by their place. Members may fail with a `Failure`,
/// which ends the acquisition.
class Intake {
public:
    virtual ~Intake() = default;

    /// The next samples of a channel.
    virtual void append(std::size_t channel, std::span<const float> samples) = 0;
    /// The device has triggered between the samples before and after.
    virtual void trigger(double time) = 0;
    /// Delivers what is whole. Called before and after what a device delivers at once, and now and then.
    virtual void advance(double time) = 0;

    /// The device has ended; delivers what is left.
    virtual void finish() = 0;

    /// Whether all ordered samples are delivered.
    [[nodiscard]] virtual bool isComplete() const = 0;
    /// Whether a device that has ended is to begin again, because it has only waited; what it has delivered is dropped.
    virtual bool beginsAgain() = 0;
    /// Whether a device may end without an error before all samples.
    [[nodiscard]] virtual bool mayEnd() const = 0;
    /// The number of the sample after the last delivered one.
    [[nodiscard]] virtual std::int64_t next() const = 0;
};

} // namespace ko::sigrok
