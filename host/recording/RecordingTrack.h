#pragma once

#include "host/recording/BlockQueue.h"
#include "host/recording/RecordingPlan.h"

namespace ko {

/// An instrument in a recording. As a sink it passes the deliveries on to the queue; all else belongs to the thread
/// that records.
class RecordingTrack final : public BlockSink {
public:
    enum class Phase { Armed, Acquiring, Over };

    RecordingTrack(const PlannedInstrument& instrument, Acquisition& source, std::size_t place, BlockQueue& queue,
                   bool waitsForRoom)
        : plan(instrument), acquisition(source), place_(place), queue_(queue), waitsForRoom_(waitsForRoom)
    {
    }

    void triggered(std::int64_t sample) override { queue_.put({place_, Delivery::Triggered{sample}}); }
    /// In real time a block for which there is no room is lost.
    void deliver(Block block) override
    {
        if (waitsForRoom_)
            queue_.put({place_, std::move(block)});
        else
            queue_.offer({place_, std::move(block)});
    }
    void ended(std::int64_t next, const std::string& reason) override
    {
        queue_.put({place_, Delivery::Ended{next, reason}});
    }

    const PlannedInstrument& plan;
    Acquisition& acquisition;
    Phase phase = Phase::Armed;
    std::optional<std::size_t> group;  ///< of the file; none: not recorded
    std::optional<std::int64_t> first; ///< number of the first recorded sample; none: not known yet
    std::int64_t stored = 0;           ///< samples of each channel, with the lost ones
    std::int64_t lost = 0;

    /// The number of the sample that comes next.
    [[nodiscard]] std::int64_t next() const { return first.value_or(0) + stored; }
    [[nodiscard]] std::int64_t toCome() const { return plan.samples - stored; }
    [[nodiscard]] bool awaitsTrigger() const
    {
        return plan.starts == StartsOn::OwnTrigger && phase != Phase::Over && !first;
    }
    /// Seconds of the recording's time.
    [[nodiscard]] double timeOf(std::int64_t sample) const
    {
        return static_cast<double>(sample) * plan.settings.period;
    }

private:
    std::size_t place_;
    BlockQueue& queue_;
    bool waitsForRoom_;
};

} // namespace ko
