#include "host/modules/CheckedSink.h"

#include <algorithm>

namespace ko {

CheckedSink::CheckedSink(CheckLog& log, const ArmedSettings& armed, const AcquisitionOrder& order)
    : log_(log), channels_(armed.channels.size()), period_(armed.period), order_(order)
{
}

void CheckedSink::setStarting(bool isStarting)
{
    const std::lock_guard lock(mutex_);
    starter_ = isStarting ? std::optional(std::this_thread::get_id()) : std::nullopt;
}

bool CheckedSink::enter(const char* call)
{
    if (starter_ == std::this_thread::get_id())
        log_.blame(call, "is called by start, not on a thread of the acquisition");
    if (hasEnded_)
        log_.blame(call, "is called after the end");
    return !hasEnded_;
}

void CheckedSink::triggered(std::int64_t sample)
{
    const std::lock_guard lock(mutex_);
    if (!enter("triggered"))
        return;
    if (!order_.onTrigger)
        log_.blame("triggered", "is called, and the order does not wait for a trigger");
    if (hasTriggered_ || first_)
        log_.blame("triggered", "is called twice, or after the first block");
    if (sample < 0)
        log_.blame("triggered", "names sample " + std::to_string(sample));
    hasTriggered_ = true;
}

void CheckedSink::deliver(Block block)
{
    const std::lock_guard lock(mutex_);
    if (!enter("deliver"))
        return;
    checkBlock(block);
    if (!first_)
        first_ = order_.onTrigger ? block.first : 0;
    lost_ += std::max<std::int64_t>(block.first - std::max(next_, *first_), 0);
    next_ = std::max(next_, block.first + std::max<std::int64_t>(block.count, 0));
    changed_.notify_all();
}

void CheckedSink::checkBlock(const Block& block)
{
    if (order_.onTrigger && !hasTriggered_)
        log_.blame("deliver", "comes before the trigger");
    if (block.count <= 0)
        log_.blame("deliver", "has a block of " + std::to_string(block.count) + " samples");
    const auto wanted = static_cast<std::size_t>(std::max<std::int64_t>(block.count, 0)) * channels_;
    if (block.samples.size() != wanted)
        log_.blame("deliver", "has " + std::to_string(block.samples.size()) + " numbers in a block that needs " +
                                  std::to_string(wanted));
    if (block.first < next_)
        log_.blame("deliver",
                   "has sample " + std::to_string(block.first) + ", and " + std::to_string(next_) + " comes next");
    // A clock of the instrument's own may be ahead a little.
    const double due = static_cast<double>(block.first + block.count - 1) * period_ * 0.9 - 0.01;
    const std::chrono::duration<double> age = std::chrono::steady_clock::now() - order_.origin;
    if (!order_.onTrigger && age.count() < due)
        log_.blame("deliver", "has samples before they can have been taken in real time");
}

void CheckedSink::ended(std::int64_t next, const std::string& reason)
{
    const std::lock_guard lock(mutex_);
    if (!enter("ended"))
        return;
    if (next < next_)
        log_.blame("ended",
                   "names sample " + std::to_string(next) + " after " + std::to_string(next_) + " were delivered");
    if (!first_)
        first_ = order_.onTrigger ? next : 0;
    lost_ += std::max<std::int64_t>(next - std::max(next_, *first_), 0);
    next_ = std::max(next, next_);
    reason_ = reason;
    hasEnded_ = true;
    changed_.notify_all();
}

bool CheckedSink::awaitSamples(Moment until) const
{
    std::unique_lock lock(mutex_);
    return changed_.wait_until(lock, until, [&] { return hasEnded_ || next_ > 0; });
}

bool CheckedSink::awaitEnd(Moment until) const
{
    std::unique_lock lock(mutex_);
    return changed_.wait_until(lock, until, [&] { return hasEnded_; });
}

bool CheckedSink::hasEnded() const
{
    const std::lock_guard lock(mutex_);
    return hasEnded_;
}

bool CheckedSink::hasTriggered() const
{
    const std::lock_guard lock(mutex_);
    return hasTriggered_;
}

std::string CheckedSink::reason() const
{
    const std::lock_guard lock(mutex_);
    return reason_;
}

std::int64_t CheckedSink::samples() const
{
    const std::lock_guard lock(mutex_);
    return next_ - first_.value_or(0);
}

std::int64_t CheckedSink::lost() const
{
    const std::lock_guard lock(mutex_);
    return lost_;
}

} // namespace ko
