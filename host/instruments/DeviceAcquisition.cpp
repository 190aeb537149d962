#include "host/instruments/DeviceAcquisition.h"

#include "host/instruments/ForeignCall.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace ko {

/// Checks what a device delivers.
class DeviceAcquisition::Guard final : public BlockSink {
public:
    Guard(BlockSink& sink, std::size_t channels, bool awaitsTrigger, std::atomic<bool>& hasFailed)
        : sink_(sink), channels_(channels), hasFailed_(hasFailed), awaitsTrigger_(awaitsTrigger)
    {
    }

    void triggered(std::int64_t sample) override
    {
        const std::lock_guard lock(mutex_);
        if (isOver_ || sample < 0 || !std::exchange(awaitsTrigger_, false))
            return blame("a trigger out of turn");
        sink_.triggered(sample);
    }

    void deliver(Block block) override
    {
        const std::lock_guard lock(mutex_);
        const auto size = static_cast<std::size_t>(std::max<std::int64_t>(block.count, 0)) * channels_;
        if (isOver_ || awaitsTrigger_ || block.count <= 0 || block.first < next_ || block.samples.size() != size)
            return blame("a block out of turn or of the wrong size");
        next_ = block.first + block.count;
        sink_.deliver(std::move(block));
    }

    void ended(std::int64_t next, const std::string& reason) override
    {
        const std::lock_guard lock(mutex_);
        if (!isOver_)
            end(next, reason);
    }

    /// Ends the acquisition if the module has not; nothing reaches the sink afterwards.
    void close(const std::string& reason)
    {
        const std::lock_guard lock(mutex_);
        if (!isOver_)
            end(next_, reason);
    }

private:
    void end(std::int64_t next, const std::string& reason)
    {
        isOver_ = true;
        const std::string& why = reason.empty() ? fault_ : reason;
        hasFailed_ = !why.empty();
        sink_.ended(std::max(next, next_), why);
    }
    void blame(const char* what)
    {
        if (fault_.empty())
            fault_ = std::string("the driver module has delivered ") + what;
    }

    std::mutex mutex_;
    BlockSink& sink_;
    std::size_t channels_;
    std::atomic<bool>& hasFailed_;
    std::int64_t next_ = 0;
    bool awaitsTrigger_;
    bool isOver_ = false;
    std::string fault_;
};

DeviceAcquisition::DeviceAcquisition(Find find, std::function<ArmedSettings()> present)
    : find_(std::move(find)), present_(std::move(present))
{
}

DeviceAcquisition::~DeviceAcquisition()
{
    DeviceAcquisition::stop();
}

/// After a failed acquisition a device that cannot be armed is opened again, for it may have come back.
ArmedSettings DeviceAcquisition::arm()
{
    if (inUse_)
        throw Failure(failure::unspecified, "is acquiring");
    try {
        return armed();
    } catch (const Failure&) {
        if (!hasFailed_.exchange(false))
            throw;
        return armed();
    }
}

ArmedSettings DeviceAcquisition::armed()
{
    Acquisition& device = find_();
    try {
        ArmedSettings settings = foreignCall([&] { return device.arm(); });
        inUse_ = &device;
        channels_ = settings.channels.size();
        isLost_ = hasFailed_ = false;
        return settings;
    } catch (const Failure&) {
        isLost_ = true;
        throw;
    }
}

void DeviceAcquisition::start(const AcquisitionOrder& order, BlockSink& sink)
{
    Acquisition* const device = inUse_;
    if (!device)
        throw Failure(failure::unspecified, "is not armed");
    guard_ = std::make_unique<Guard>(sink, channels_, order.onTrigger, hasFailed_);
    try {
        foreignCall([&] { device->start(order, *guard_); });
    } catch (const Failure&) {
        isLost_ = true;
        guard_.reset();
        throw;
    }
}

/// A device that cannot be stopped is opened again before the next acquisition.
void DeviceAcquisition::stop()
{
    std::string reason = "the driver module has not ended the acquisition";
    if (Acquisition* const device = inUse_)
        try {
            foreignCall([&] { device->stop(); });
        } catch (const Failure& failure) {
            isLost_ = true;
            reason += ": " + std::string(failure.what());
        }
    if (guard_)
        guard_->close(reason);
    inUse_ = nullptr;
}

} // namespace ko
