#pragma once

#include "host/instruments/Acquisition.h"

#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>

namespace ko::test {

/// Keeps what an instrument delivers.
class Tape final : public BlockSink {
public:
    void triggered(std::int64_t sample) override { trigger = sample; }
    void deliver(Block block) override
    {
        const std::lock_guard lock(mutex_);
        blocks.push_back(std::move(block));
        changed_.notify_all();
    }
    void ended(std::int64_t next, const std::string& reason) override
    {
        const std::lock_guard lock(mutex_);
        end = next;
        why = reason;
        changed_.notify_all();
    }

    void awaitEnd()
    {
        await([&] { return end.has_value(); });
    }
    void awaitBlock()
    {
        await([&] { return end || !blocks.empty(); });
    }

    /// The samples of a channel; the blocks must follow each other.
    [[nodiscard]] std::vector<float> samplesOf(std::size_t channel) const
    {
        std::vector<float> all;
        for (const Block& block : blocks) {
            EXPECT_EQ(block.first, blocks.front().first + std::ssize(all));
            const auto from = block.samples.begin() + static_cast<std::ptrdiff_t>(channel) * block.count;
            all.insert(all.end(), from, from + block.count);
        }
        return all;
    }

    std::vector<Block> blocks;
    std::optional<std::int64_t> trigger, end;
    std::string why;

private:
    template <class Condition> void await(const Condition& condition)
    {
        std::unique_lock lock(mutex_);
        ASSERT_TRUE(changed_.wait_for(lock, std::chrono::seconds(20), condition));
    }

    std::mutex mutex_;
    std::condition_variable changed_;
};

} // namespace ko::test
