#pragma once

#include "host/instruments/Acquisition.h"
#include "host/modules/CheckLog.h"

#include <condition_variable>
#include <thread>

namespace ko {

/// Takes what an instrument delivers and checks it.
class CheckedSink final : public BlockSink {
public:
    CheckedSink(CheckLog& log, const ArmedSettings& armed, const AcquisitionOrder& order);

    void triggered(std::int64_t sample) override;
    void deliver(Block block) override;
    void ended(std::int64_t next, const std::string& reason) override;

    using Moment = std::chrono::steady_clock::time_point;
    bool awaitSamples(Moment until) const;
    bool awaitEnd(Moment until) const;

    /// While it is set, on this thread, `start` is in progress.
    void setStarting(bool isStarting);
    [[nodiscard]] bool hasEnded() const;
    [[nodiscard]] bool hasTriggered() const;
    [[nodiscard]] std::string reason() const;
    /// Samples of each channel that were delivered or lost.
    [[nodiscard]] std::int64_t samples() const;
    [[nodiscard]] std::int64_t lost() const;

private:
    /// Returns whether the call came in turn.
    bool enter(const char* call);
    void checkBlock(const Block& block);

    CheckLog& log_;
    std::size_t channels_;
    double period_;
    AcquisitionOrder order_;
    mutable std::mutex mutex_; ///< protects the rest
    mutable std::condition_variable changed_;
    std::optional<std::thread::id> starter_;
    std::optional<std::int64_t> first_; ///< number of the first sample
    std::int64_t next_ = 0;
    std::int64_t lost_ = 0;
    bool hasTriggered_ = false;
    bool hasEnded_ = false;
    std::string reason_;
};

} // namespace ko
