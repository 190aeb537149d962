#include "host/recording/BlockQueue.h"

namespace ko {

namespace {

std::size_t bytesOf(const Delivery& delivery)
{
    const auto* const block = std::get_if<Block>(&delivery.what);
    return block ? block->samples.size() * sizeof(float) : 0;
}

} // namespace

bool BlockQueue::hasRoom(std::size_t bytes) const
{
    return isOpen_ || bytes_ == 0 || bytes == 0 || bytes_ + bytes <= capacity_;
}

void BlockQueue::add(Delivery&& delivery, std::size_t bytes)
{
    bytes_ += bytes;
    deliveries_.push_back(std::move(delivery));
    added_.notify_one();
}

void BlockQueue::put(Delivery delivery)
{
    const std::size_t bytes = bytesOf(delivery);
    std::unique_lock lock(mutex_);
    removed_.wait(lock, [&] { return hasRoom(bytes); });
    add(std::move(delivery), bytes);
}

void BlockQueue::offer(Delivery delivery)
{
    const std::size_t bytes = bytesOf(delivery);
    const std::lock_guard lock(mutex_);
    if (hasRoom(bytes))
        add(std::move(delivery), bytes);
}

void BlockQueue::open()
{
    const std::lock_guard lock(mutex_);
    isOpen_ = true;
    removed_.notify_all();
}

std::optional<Delivery> BlockQueue::take(std::chrono::steady_clock::time_point until)
{
    std::unique_lock lock(mutex_);
    added_.wait_until(lock, until, [this] { return isWoken_ || !deliveries_.empty(); });
    isWoken_ = false;
    if (deliveries_.empty())
        return std::nullopt;
    std::optional<Delivery> oldest = std::move(deliveries_.front());
    deliveries_.pop_front();
    bytes_ -= bytesOf(*oldest);
    removed_.notify_all();
    return oldest;
}

void BlockQueue::wake()
{
    const std::lock_guard lock(mutex_);
    isWoken_ = true;
    added_.notify_one();
}

} // namespace ko
