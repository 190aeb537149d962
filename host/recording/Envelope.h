#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace ko {

/// The lowest and the highest of some samples. Lost samples, which are NaN, do not count.
struct Extent {
    float low = std::numeric_limits<float>::infinity();
    float high = -std::numeric_limits<float>::infinity();

    bool operator==(const Extent&) const = default;
    [[nodiscard]] bool isEmpty() const { return low > high; }
    void add(const Extent& other)
    {
        // In this order a NaN leaves the bound as it is.
        low = other.low < low ? other.low : low;
        high = other.high > high ? other.high : high;
    }
};

/// Consecutive parts of a channel, numbered by samples: `count` parts of `width` samples each.
struct SampleSpan {
    double first = 0.0;
    double width = 1.0; ///< at least 1
    std::size_t count = 0;
};

/// The extents of a channel's samples, for charts of any number of them. The last samples are kept finely, earlier ones
/// more and more coarsely: the memory grows with the logarithm of the number of samples, and the time for a part of a
/// chart does not depend on it.
class Envelope {
public:
    /// Nothing is kept finer than `width` samples; each of the levels has `capacity` extents.
    explicit Envelope(std::int64_t width = 1, std::int64_t capacity = 8192);

    void append(std::span<const float> samples);
    void appendLost(std::int64_t count);

    [[nodiscard]] std::int64_t size() const { return size_; }
    /// The last sample that was not lost; NaN: none.
    [[nodiscard]] float latest() const { return latest_; }

    /// Returns the extent of each part, empty where all samples are lost or there are none. Where the samples are kept
    /// more coarsely than that, the extent includes samples of the neighbours.
    [[nodiscard]] std::vector<Extent> extents(const SampleSpan& span) const;

private:
    /// The last extents of `width` samples each, in a ring.
    struct Level {
        std::int64_t width = 1;
        std::int64_t capacity = 0;
        std::int64_t end = 0; ///< number of the extent after the last
        std::vector<Extent> ring;

        [[nodiscard]] std::int64_t begin() const { return end < capacity ? 0 : end - capacity; }
        [[nodiscard]] const Extent& at(std::int64_t number) const
        {
            return ring[static_cast<std::size_t>(number % capacity)];
        }
        Extent& at(std::int64_t number) { return ring[static_cast<std::size_t>(number % capacity)]; }
        void extendTo(std::int64_t samples);
        void addFrom(const Level& finer, std::int64_t first);
    };

    void extendTo(std::int64_t samples);
    [[nodiscard]] const Level& levelFor(const SampleSpan& span) const;

    std::vector<Level> levels_; ///< each four times as wide as the one before; the last one has everything
    std::int64_t size_ = 0;
    float latest_ = std::numeric_limits<float>::quiet_NaN();
};

} // namespace ko
