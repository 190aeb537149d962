#pragma once

#include "modules/sigrok/Intake.h"

namespace ko::sigrok {

/// What a `PacketJoiner` is to make of the packets.
struct JoinOrder {
    std::size_t channels = 0;
    double period = 1.0;      ///< seconds
    std::int64_t samples = 0; ///< of each channel
    std::int64_t first = 0;   ///< number of the first sample, without a trigger
    bool awaitsTrigger = false;
    std::int64_t pretrigger = 0; ///< samples to keep from before the trigger
    double patience = 0.0;       ///< seconds until the trigger
};

/// Joins what each channel of a device delivers in packets of its own into blocks of all channels. Before the trigger
/// it keeps the last samples only; channels that have delivered fewer of them than others begin with NaN. A device
/// numbers no samples, so that the number of the trigger is taken from the clock.
class PacketJoiner final : public Intake {
public:
    /// Samples, of all channels, that may wait for those of other channels.
    static constexpr std::size_t mostWaiting = std::size_t{16} * 1024 * 1024;
    /// Values in a block.
    static constexpr std::size_t mostInBlock = std::size_t{256} * 1024;

    PacketJoiner(const JoinOrder& order, BlockSink& sink);

    /// Fails if one channel is too far behind the others.
    void append(std::size_t channel, std::span<const float> samples) override;
    void trigger(double time) override;
    /// Fails when the trigger has not come in time.
    void advance(double time) override;

    /// After a trigger, channels of which the device has delivered fewer samples than of others end with NaN: devices
    /// with a memory may trigger for some channels only.
    void finish() override;
    bool beginsAgain() override;
    [[nodiscard]] bool isComplete() const override { return left_ == 0; }
    /// A triggered device has a memory of its own, which may hold less.
    [[nodiscard]] bool mayEnd() const override { return order_.awaitsTrigger && hasTriggered_; }
    [[nodiscard]] std::int64_t next() const override { return next_; }

private:
    /// Samples of a channel that are not delivered.
    struct Waiting {
        std::vector<float> samples;
        std::size_t begin = 0; ///< those before are delivered

        [[nodiscard]] std::size_t size() const { return samples.size() - begin; }
        void drop(std::size_t count);
    };

    [[nodiscard]] bool isWaiting() const { return order_.awaitsTrigger && !hasTriggered_; }
    [[nodiscard]] std::size_t longest() const;
    [[nodiscard]] std::size_t joined() const;
    void deliverJoined();
    void deliver(std::size_t count);

    JoinOrder order_;
    BlockSink& sink_;
    std::vector<Waiting> waiting_;
    std::size_t waits_ = 0; ///< samples in `waiting_`
    std::int64_t next_ = 0;
    std::int64_t left_;
    bool hasTriggered_ = false;
};

} // namespace ko::sigrok
