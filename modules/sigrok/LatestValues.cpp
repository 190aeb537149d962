#include "modules/sigrok/LatestValues.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ko::sigrok {

namespace {

constexpr std::int64_t mostScansInBlock = 4096;
constexpr double longestSilence = 60.0; // seconds
constexpr float none = std::numeric_limits<float>::quiet_NaN();

} // namespace

LatestValues::LatestValues(std::size_t channels, double period, std::int64_t scans, std::int64_t first, BlockSink& sink)
    : sink_(sink), period_(period), next_(first), end_(first + scans), values_(channels, none),
      staleFrom_(channels, first)
{
}

void LatestValues::append(std::size_t channel, std::span<const float> samples)
{
    if (samples.empty())
        return;
    values_[channel] = samples.back();
    staleFrom_[channel] = next_ + 3 + static_cast<std::int64_t>(std::min(longestSilence / period_, 1e12));
}

void LatestValues::advance(double time)
{
    const double periods = std::clamp(std::floor(time / period_), -1.0, static_cast<double>(end_ - 1));
    const auto due = static_cast<std::int64_t>(periods) + 1;
    while (next_ < due) {
        const std::int64_t count = std::min(due - next_, mostScansInBlock);
        Block block{.first = next_, .count = count, .samples = {}};
        for (std::size_t i = 0; i < values_.size(); ++i) {
            const std::int64_t fresh = std::clamp<std::int64_t>(staleFrom_[i] - next_, 0, count);
            block.samples.insert(block.samples.end(), static_cast<std::size_t>(fresh), values_[i]);
            block.samples.insert(block.samples.end(), static_cast<std::size_t>(count - fresh), none);
        }
        next_ += count;
        sink_.deliver(std::move(block));
    }
}

} // namespace ko::sigrok
