#pragma once

#include "host/instruments/Acquisition.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace ko::sigrok {

/// The host's sink until the first `ended`. Can be called on any thread.
class LentSink final : public BlockSink {
public:
    explicit LentSink(BlockSink& sink) : sink_(&sink) {}

    void triggered(std::int64_t sample) override
    {
        const std::lock_guard lock(mutex_);
        if (sink_)
            sink_->triggered(sample);
    }
    void deliver(Block block) override
    {
        const std::lock_guard lock(mutex_);
        next_ = block.first + block.count;
        if (sink_)
            sink_->deliver(std::move(block));
    }
    void ended(std::int64_t next, const std::string& reason) override
    {
        const std::lock_guard lock(mutex_);
        if (BlockSink* const sink = std::exchange(sink_, nullptr))
            sink->ended(std::max(next, next_), reason);
        ended_.notify_all();
    }

    /// Waits for `ended`, but not longer than this. Returns whether it was called.
    bool awaitEnd(std::chrono::milliseconds time)
    {
        std::unique_lock lock(mutex_);
        return ended_.wait_for(lock, time, [this] { return !sink_; });
    }

private:
    std::mutex mutex_;
    std::condition_variable ended_;
    BlockSink* sink_;
    std::int64_t next_ = 0; ///< after the last sample
};

} // namespace ko::sigrok
