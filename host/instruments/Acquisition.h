#pragma once

#include "interfaces/Values.h"
#include "platform/Failure.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace ko {

/// A channel that an instrument delivers.
struct ArmedChannel {
    std::int32_t group = 0;   ///< index in the driver
    std::int32_t channel = 0; ///< index in the group
    std::string address, name, unit;
    Range range; ///< of what can be measured; 0 and 0: not known

    /// Whether a sample is at a limit of the range, so that the signal may have been beyond it.
    [[nodiscard]] bool isClipped(float sample) const
    {
        const bool isAtLimit =
            sample <= static_cast<float>(range.minimum) || sample >= static_cast<float>(range.maximum);
        return hasRange() && isAtLimit;
    }
    [[nodiscard]] bool hasRange() const { return range != Range{}; }

    bool operator==(const ArmedChannel&) const = default;
};

/// The edge that triggers.
enum class Slope { Rising, Falling, Either };

/// The channel that an instrument marks as its trigger source, and when it triggers.
struct ArmedTrigger {
    std::int32_t group = 0, channel = 0;
    double level = 0.0;
    Slope slope = Slope::Rising;
    std::int64_t pretrigger = 0; ///< samples that are delivered from before the trigger

    bool operator==(const ArmedTrigger&) const = default;
};

/// What an instrument acquires by: a copy of its settings, which later changes of the instrument do not affect.
struct ArmedSettings {
    bool isDynamic = true;      ///< samples blocks; else scans
    double period = 0.0;        ///< seconds between two samples or scans
    std::int64_t blockSize = 1; ///< samples of a channel; 1 for scans
    float duration = 0.0F;      ///< seconds
    std::int32_t startMode = startMode::immediately;
    std::int32_t stopMode = stopMode::afterDuration;
    DateTime startTime;
    std::optional<ArmedTrigger> trigger;
    std::int32_t startMasterRank = -1;
    std::int32_t startTriggerLine = -1;  ///< driven as the start master
    std::int32_t startTriggerInput = -1; ///< listened to
    std::vector<ArmedChannel> channels;  ///< the enabled ones, in the driver's order

    bool operator==(const ArmedSettings&) const = default;
};

/// What the host asks of an armed instrument. Sample k is taken k periods after `origin`, which is the same for all
/// instruments of a recording; a scan is a sample, too.
struct AcquisitionOrder {
    std::chrono::steady_clock::time_point origin{};
    std::int64_t samples = 0; ///< of each channel; the acquisition then ends by itself
    bool onTrigger = false;   ///< wait for the own trigger; the pretrigger counts in `samples`
    double notBefore = 0.0;   ///< seconds after `origin`: the first sample is the first one not before this time
    double patience = 0.0;    ///< seconds after `origin`; the acquisition fails if it has not triggered by then
    bool isPaced = true;      ///< in real time; else as fast as the sink takes blocks, unless it `isRealTime`
};

/// Samples of all channels at consecutive times.
struct Block {
    std::int64_t first = 0;     ///< number of the first sample of each channel
    std::int64_t count = 0;     ///< samples of each channel
    std::vector<float> samples; ///< all of the first channel, then all of the second, ...
};

/// Takes what an instrument delivers, on the instrument's thread. Calls come one at a time; none comes after `ended`.
class BlockSink {
public:
    virtual ~BlockSink() = default;

    /// The trigger has occurred at sample `sample`. Comes before the first block, if the instrument waits for it.
    virtual void triggered(std::int64_t sample) = 0;

    /// Blocks come in the order of time. Samples between two of them are lost: the instrument could not keep them.
    /// Returns when the block has been taken; a sink may wait until it has room.
    virtual void deliver(Block block) = 0;

    /// The acquisition has ended: each sample before `next` was delivered or is lost. `reason` is empty after all
    /// ordered samples, after a stop, and if the instrument has ended early by itself; else it says why the instrument
    /// has failed.
    virtual void ended(std::int64_t next, const std::string& reason) = 0;
};

/// The acquiring side of an instrument. `settingsToArm` and `arm` are called on the user-interface thread, `start` and
/// `stop` on any other, one call at a time; blocks are delivered on a thread that the acquisition has.
class Acquisition {
public:
    /// Stops.
    virtual ~Acquisition() = default;

    /// Returns what `arm` would copy at present. Calls no driver operation. Fails with a `Failure` for settings by
    /// which nothing can be acquired.
    [[nodiscard]] virtual ArmedSettings settingsToArm() const = 0;

    /// Copies the settings of the instrument, prepares it and returns the copy. A device gets its settings here; if
    /// it then has another value, that fails with both. Fails with a `Failure` if the instrument is not ready, or is
    /// acquiring.
    virtual ArmedSettings arm() = 0;

    /// Begins to deliver, once after each `arm`. `sink` must live until `stop` has returned. Fails with a `Failure`,
    /// without a call to the sink.
    virtual void start(const AcquisitionOrder& order, BlockSink& sink) = 0;

    /// Ends the acquisition, if it has not ended, and returns after the sink's `ended`. The sink's other calls must
    /// return meanwhile. Does nothing if nothing was started; disarms.
    virtual void stop() = 0;

    /// Whether the instrument acquires in real time, however it is ordered.
    [[nodiscard]] virtual bool isRealTime() const { return true; }
};

} // namespace ko
