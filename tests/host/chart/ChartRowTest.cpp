#include "host/chart/ChartRow.h"
#include "Sines.h"

#include <array>
#include <gtest/gtest.h>
#include <random>

namespace ko::test {
namespace {

TEST(ChartRowTest, AScaleHasRoomForItsValuesAndStaysWhileTheyFit)
{
    std::mt19937 random(3);
    for (const double low : {0.0, 9.1e15, 1e18, 1e300})
        EXPECT_LE(ticks(low, low + 100.0, 1.0).size(), 1000U);
    ChartScale scale{0.0, 0.0};
    for (int i = 0; i < 2000; ++i) {
        const double size = std::pow(10.0, static_cast<double>(random() % 12) - 6.0);
        const double low = static_cast<double>(random() % 2000) * size - 1000.0 * size;
        const double high = low + static_cast<double>(random() % 100) * size;
        scale = scale.fitted(low, high);
        ASSERT_TRUE(scale.low <= low && scale.high >= high && scale.high > scale.low) << low << " " << high;
        ASSERT_TRUE(high == low || high - low > 0.39 * (scale.high - scale.low)) << low << " " << high;
        const ChartScale kept = scale.fitted(low, high);
        ASSERT_TRUE(high == low || (kept.low == scale.low && kept.high == scale.high)) << low << " " << high;
    }
}

TEST(ChartRowTest, ACurveCoversTheViewHoweverItIsZoomed)
{
    const Sines source(1, 1e-3, 60000);
    constexpr int columns = 300;
    for (const double perColumn : {1e-6, 1e-4, 0.9e-3, 1e-3, 0.1})
        for (const double from : {0.0, 0.0005, 3.3337}) {
            const ChartCurve curve = curveOf(source, 0, {0.5, 60000, 0, 0.0F}, {from, perColumn}, columns);
            EXPECT_LE(curve.timeOf(0), from + 1e-9) << perColumn;
            EXPECT_GE(curve.timeOf(curve.extents.size()) + 1e-9, from + columns * perColumn) << perColumn;
            EXPECT_LE(curve.extents.size(), columns + 4U) << perColumn;
            EXPECT_GE(curve.step + 1e-12, 1e-3) << "no finer than the samples";
            EXPECT_DOUBLE_EQ(curve.end, 60.5);
        }
}

TEST(ChartRowTest, SamplesAreJoinedLostOnesHatchedAndLimitsMarked)
{
    const ChartPlot plot{.rect = {100, 10, 200, 100}, .view = {1, 0.5}, .scale = {0, 10}, .column = 10};
    ChartCurve curve;
    curve.extents = {{0, 10}, {2, 4}, {}, {}, {5, 5}, {12, 20}, {}};
    curve.first = 1;
    curve.start = 1;
    curve.end = 7.25;
    const auto text = [](const auto& shapes, const auto& numbers) {
        std::string all;
        for (const auto& shape : shapes) {
            for (const double number : numbers(shape))
                all += std::to_string(std::lround(number)) + " ";
            all += "| ";
        }
        return all;
    };
    const auto ends = [](const QLineF& it) { return std::array{it.x1(), it.y1(), it.x2(), it.y2()}; };
    EXPECT_EQ(text(plot.lines(curve), ends), "100 110 100 10 | 120 90 120 70 | 100 90 120 90 | 180 60 180 60 | "
                                             "200 10 200 10 | 180 60 200 10 | ");
    EXPECT_EQ(text(plot.gaps(curve),
                   [](const QRectF& it) {
                       return std::array{it.left(), it.top(), it.right(), it.bottom()};
                   }),
              "140 10 180 110 | 220 10 225 110 | ");
    ArmedChannel channel;
    EXPECT_TRUE(plot.clippedMarks(curve, channel).isEmpty()) << "without a range";
    channel.range = {2, 10};
    EXPECT_EQ(text(plot.clippedMarks(curve, channel), ends),
              "100 4 100 8 | 100 112 100 116 | 120 112 120 116 | 200 4 200 8 | ");
    const Extent all = finiteExtent(curve);
    EXPECT_EQ(std::pair(all.low, all.high), std::pair(0.0F, 20.0F));
}

} // namespace
} // namespace ko::test
