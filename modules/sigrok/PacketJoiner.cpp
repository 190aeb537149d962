#include "modules/sigrok/PacketJoiner.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ko::sigrok {

namespace {

constexpr float missing = std::numeric_limits<float>::quiet_NaN();

} // namespace

void PacketJoiner::Waiting::drop(std::size_t count)
{
    begin += count;
    if (begin * 2 < samples.size())
        return;
    samples.erase(samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(begin));
    begin = 0;
}

PacketJoiner::PacketJoiner(const JoinOrder& order, BlockSink& sink)
    : order_(order), sink_(sink), waiting_(order.channels), next_(order.first), left_(order.samples)
{
}

void PacketJoiner::append(std::size_t channel, std::span<const float> samples)
{
    Waiting& waiting = waiting_[channel];
    waiting.samples.insert(waiting.samples.end(), samples.begin(), samples.end());
    waits_ += samples.size();
    const auto kept = static_cast<std::size_t>(order_.pretrigger);
    if (isWaiting() && waiting.size() > kept) {
        waits_ -= waiting.size() - kept;
        waiting.drop(waiting.size() - kept);
    }
    if (waits_ > mostWaiting && !isWaiting() && !isComplete() && joined() == 0)
        throw Failure(failure::unspecified, "the device delivers some channels without the others");
}

void PacketJoiner::trigger(double time)
{
    if (!isWaiting())
        return;
    hasTriggered_ = true;
    const std::size_t before = longest();
    for (Waiting& waiting : waiting_) {
        waits_ += before - waiting.size();
        waiting.samples.insert(waiting.samples.begin() + static_cast<std::ptrdiff_t>(waiting.begin),
                               before - waiting.size(), missing);
    }
    const auto number = std::max<std::int64_t>(std::llround(time / order_.period), order_.pretrigger);
    next_ = number - static_cast<std::int64_t>(before);
    sink_.triggered(number);
}

bool PacketJoiner::beginsAgain()
{
    if (!isWaiting())
        return false;
    waiting_.assign(order_.channels, {});
    waits_ = 0;
    return true;
}

void PacketJoiner::finish()
{
    if (!hasTriggered_)
        return;
    const std::size_t last = longest();
    for (Waiting& waiting : waiting_) {
        waits_ += last - waiting.size();
        waiting.samples.resize(waiting.begin + last, missing);
    }
    deliverJoined();
}

std::size_t PacketJoiner::longest() const
{
    std::size_t longest = 0;
    for (const Waiting& waiting : waiting_)
        longest = std::max(longest, waiting.size());
    return longest;
}

std::size_t PacketJoiner::joined() const
{
    if (waiting_.empty())
        return static_cast<std::size_t>(left_);
    const auto least = std::min_element(waiting_.begin(), waiting_.end(),
                                        [](const Waiting& a, const Waiting& b) { return a.size() < b.size(); });
    return std::min(least->size(), static_cast<std::size_t>(left_));
}

void PacketJoiner::advance(double time)
{
    if (isWaiting()) {
        if (time > order_.patience)
            throw Failure(failure::unspecified,
                          "no trigger within " + std::to_string(std::llround(order_.patience)) + " seconds");
        return;
    }
    deliverJoined();
}

void PacketJoiner::deliverJoined()
{
    const std::size_t most = mostInBlock / std::max<std::size_t>(waiting_.size(), 1);
    while (const std::size_t count = std::min(joined(), std::max<std::size_t>(most, 1)))
        deliver(count);
}

void PacketJoiner::deliver(std::size_t count)
{
    Block block{.first = next_, .count = static_cast<std::int64_t>(count), .samples = {}};
    block.samples.reserve(count * waiting_.size());
    for (Waiting& waiting : waiting_) {
        const auto from = waiting.samples.begin() + static_cast<std::ptrdiff_t>(waiting.begin);
        block.samples.insert(block.samples.end(), from, from + static_cast<std::ptrdiff_t>(count));
        waiting.drop(count);
    }
    waits_ -= count * waiting_.size();
    next_ += block.count;
    left_ -= block.count;
    sink_.deliver(std::move(block));
}

} // namespace ko::sigrok
