#include "host/recording/Envelope.h"
#include "Recorded.h"

#include <random>

namespace ko::test {
namespace {

constexpr float lostSample = std::numeric_limits<float>::quiet_NaN();

bool contains(const Extent& outer, const Extent& inner)
{
    return inner.isEmpty() || (outer.low <= inner.low && outer.high >= inner.high);
}

TEST(EnvelopeTest, ShowsEveryExtremeOnceWhateverTheLengthWithBoundedMemory)
{
    std::mt19937 random(5);
    const auto below = [&](int bound) { return static_cast<std::int64_t>(random() % static_cast<unsigned>(bound)); };
    for (const std::int64_t width : {std::int64_t{1}, std::int64_t{4}, std::int64_t{16}, std::int64_t{1} << 40}) {
        const std::int64_t capacity = 64;
        Envelope envelope(width, capacity);
        std::vector<float> samples;
        while (samples.size() < 20000) {
            if (below(8) == 0) {
                const std::int64_t lost = below(4) == 0 ? below(5000) : below(10);
                samples.insert(samples.end(), static_cast<std::size_t>(lost), lostSample);
                envelope.appendLost(lost);
            }
            std::vector<float> block(static_cast<std::size_t>(below(below(4) == 0 ? 3000 : 20)));
            for (float& sample : block)
                sample = below(10) == 0 ? lostSample : static_cast<float>(below(100000));
            samples.insert(samples.end(), block.begin(), block.end());
            envelope.append(block);

            const auto size = static_cast<double>(samples.size());
            ASSERT_EQ(envelope.size(), std::ssize(samples));
            // The end is fine; the whole is coarse; earlier parts lack nothing and add no more than their neighbours.
            const double fine = std::max(0.0, size - 40.0 * static_cast<double>(width));
            const double end = std::floor(fine / static_cast<double>(width)) * static_cast<double>(width);
            const SampleSpan last{.first = end, .width = static_cast<double>(width), .count = 45};
            ASSERT_EQ(envelope.extents(last), extentsOf(samples, last)) << samples.size();
            const SampleSpan any{.first = static_cast<double>(below(static_cast<int>(size) + 1)) - 9.5,
                                 .width = 1.0 + static_cast<double>(below(5000)) / 7.0,
                                 .count = 37};
            const auto shown = envelope.extents(any);
            const auto exact = extentsOf(samples, any);
            const double coarsest = 4.0 * size / static_cast<double>(capacity) + 4.0 * static_cast<double>(width);
            SampleSpan wide{.first = any.first - coarsest, .width = any.width + 2.0 * coarsest, .count = 1};
            for (std::size_t i = 0; i < shown.size(); ++i, wide.first += any.width) {
                ASSERT_TRUE(contains(shown[i], exact[i])) << i << " of " << samples.size();
                ASSERT_TRUE(contains(extentsOf(samples, wide)[0], shown[i])) << i << " of " << samples.size();
            }
        }
        const auto known = std::find_if(samples.rbegin(), samples.rend(), [](float s) { return !std::isnan(s); });
        EXPECT_EQ(envelope.latest(), *known);
        envelope.appendLost(1000000000000);
        const SampleSpan all{.first = 0, .width = 20000 + 5000, .count = 2};
        EXPECT_FALSE(envelope.extents(all)[0].isEmpty());
    }
}

} // namespace
} // namespace ko::test
