#pragma once

#include "modules/sigrok/SigrokInstrument.h"

#include "fakes/Thrown.h"
#include "interfaces/Timebase.h"

#include <condition_variable>
#include <gtest/gtest.h>

namespace ko::sigrok {

/// Keeps what a device delivers.
class Kept final : public BlockSink {
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

/// libsigrok with an instrument on its demonstration device.
struct Demo {
    explicit Demo(const DeviceOptions& options = {}, const std::string& device = "demo")
        : instrument(SigrokInstrument::open(library, device, options))
    {
        change([](InstrumentSettings& it) { it.timebase->samplePeriod.value = 1e-4; });
    }
    Demo(const Demo&) = delete;
    Demo& operator=(const Demo&) = delete;

    template <class Change> void change(const Change& act) const
    {
        InstrumentSettings settings = instrument->held();
        act(settings);
        instrument->restore(settings);
    }
    [[nodiscard]] Acquisition& acquisition() const { return *instrument->acquisition(); }
    [[nodiscard]] Timebase& timebase() const { return *instrument->driver().queryTimebase(); }

    /// Arms and acquires to the end.
    void acquire(Kept& kept, std::int64_t samples, bool onTrigger = false) const
    {
        acquisition().arm();
        start(kept, samples, onTrigger);
        kept.awaitEnd();
        acquisition().stop();
    }
    void start(Kept& kept, std::int64_t samples, bool onTrigger = false, double patience = 60.0) const
    {
        acquisition().start({.origin = std::chrono::steady_clock::now(),
                             .samples = samples,
                             .onTrigger = onTrigger,
                             .patience = patience},
                            kept);
    }

    std::shared_ptr<Library> library = std::make_shared<Library>();
    std::unique_ptr<Instrument> instrument;
};

using test::thrownBy;

} // namespace ko::sigrok
