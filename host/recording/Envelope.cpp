#include "host/recording/Envelope.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

constexpr std::int64_t ratio = 4; // of the widths of two levels

Extent extentOf(std::span<const float> samples)
{
    Extent extent;
    for (const float sample : samples)
        extent.add({sample, sample});
    return extent;
}

/// The number of the first sample not before this place, which may be beyond all numbers.
std::int64_t sampleFrom(double place, std::int64_t size)
{
    return place > 0.0 ? static_cast<std::int64_t>(std::ceil(std::min(place, static_cast<double>(size)))) : 0;
}

} // namespace

Envelope::Envelope(std::int64_t width, std::int64_t capacity)
{
    levels_.push_back({.width = width, .capacity = capacity, .end = 0, .ring = {}});
}

/// Makes room for the extents of this many samples; the new ones are empty.
void Envelope::Level::extendTo(std::int64_t samples)
{
    const std::int64_t newEnd = (samples + width - 1) / width;
    const std::int64_t needed = std::min(newEnd, capacity);
    if (needed > std::ssize(ring))
        ring.resize(static_cast<std::size_t>(needed));
    for (end = std::max(end, newEnd - capacity); end < newEnd; ++end)
        at(end) = {};
}

/// Adds the extents of the finer level from this sample on.
void Envelope::Level::addFrom(const Level& finer, std::int64_t first)
{
    for (std::int64_t number = std::max(first / finer.width, finer.begin()); number < finer.end; ++number)
        at(number / ratio).add(finer.at(number));
}

void Envelope::extendTo(std::int64_t samples)
{
    while ((samples - 1) / levels_.back().width >= levels_.back().capacity) {
        const Level& last = levels_.back();
        Level wider{.width = last.width * ratio, .capacity = last.capacity, .end = 0, .ring = {}};
        wider.extendTo(size_);
        wider.addFrom(last, 0);
        levels_.push_back(std::move(wider));
    }
    for (Level& level : levels_)
        level.extendTo(samples);
    size_ = samples;
}

void Envelope::append(std::span<const float> samples)
{
    // A level must still have what the next one takes from it.
    const auto most = static_cast<std::size_t>(levels_.front().capacity);
    for (; samples.size() > most; samples = samples.subspan(most))
        append(samples.first(most));
    const std::int64_t first = size_;
    extendTo(size_ + std::ssize(samples));
    Level& finest = levels_.front();
    for (std::int64_t at = first; at < size_;) {
        const std::int64_t next = std::min(size_, (at / finest.width + 1) * finest.width);
        finest.at(at / finest.width)
            .add(extentOf(samples.subspan(static_cast<std::size_t>(at - first), static_cast<std::size_t>(next - at))));
        at = next;
    }
    for (std::size_t i = 1; i < levels_.size(); ++i)
        levels_[i].addFrom(levels_[i - 1], first);
    const auto known = std::find_if(samples.rbegin(), samples.rend(), [](float sample) { return !std::isnan(sample); });
    if (known != samples.rend())
        latest_ = *known;
}

void Envelope::appendLost(std::int64_t count)
{
    extendTo(size_ + count);
}

/// The coarsest level that is fine enough, or else the finest one that goes back far enough.
const Envelope::Level& Envelope::levelFor(const SampleSpan& span) const
{
    const std::int64_t first = sampleFrom(span.first, size_);
    const Level* best = nullptr;
    for (const Level& level : levels_)
        if (level.begin() * level.width <= first && (!best || static_cast<double>(level.width) <= span.width))
            best = &level;
    return best ? *best : levels_.back();
}

std::vector<Extent> Envelope::extents(const SampleSpan& span) const
{
    const Level& level = levelFor(span);
    std::vector<Extent> parts(span.count);
    for (std::size_t i = 0; i < span.count; ++i) {
        const std::int64_t from = sampleFrom(span.first + static_cast<double>(i) * span.width, size_);
        const std::int64_t to = sampleFrom(span.first + static_cast<double>(i + 1) * span.width, size_);
        if (from < to)
            for (std::int64_t number = from / level.width; number <= (to - 1) / level.width; ++number)
                parts[i].add(level.at(number));
    }
    return parts;
}

} // namespace ko
