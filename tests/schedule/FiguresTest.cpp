#include "platform/Counts.h"
#include "schedule/DiskSpace.h"
#include "schedule/Forecast.h"

#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace ko::test {
namespace {

TEST(Figures, SamplesAreRaisedToWholeBlocks)
{
    constexpr struct {
        double samples;
        std::int32_t blockSize;
        double whole;
    } cases[] = {
        {20, 8, 24},     {20, 4, 20},          {0, 8, 8},       {3, 8, 8},        {8, 8, 8},
        {7.6, 8, 15.6},  {8.4, 8, 8.4},        {8.5, 8, 8.5},   {9.5, 8, 15.5},   {11.5, 4, 11.5},
        {11.4, 4, 12.4}, {10000, 1024, 10240}, {20.3, 0, 20.3}, {20.3, -5, 20.3}, {2147483647, 2, 2147483648.0},
    };
    for (const auto& it : cases)
        EXPECT_DOUBLE_EQ(wholeBlocks(it.samples, it.blockSize), it.whole) << it.samples << " in " << it.blockSize;
    EXPECT_THROW(wholeBlocks(3e9, 8), Failure);
    EXPECT_THROW(wholeBlocks(std::nan(""), 8), Failure);
}

TEST(Figures, ByteCountsAreShownInTheLargestUnitTheyExceed)
{
    FakePlatform host;
    const Support support(host.platform, {});
    const struct {
        double bytes;
        const char* text;
    } cases[] = {
        {0, "0 bytes"},          {416, "416 bytes"},     {1000.5, "1000.5 bytes"}, {1024, "1024 bytes"},
        {1025, "1 KB"},          {1536, "1.5 KB"},       {1155.5, "1.13 KB"},      {1157.12, "1.13 KB"},
        {1152, "1.12 KB"},       {1162.24, "1.14 KB"},   {1048576, "1024 KB"},     {1048577, "1 MB"},
        {1073741824, "1024 MB"}, {1610612736, "1.5 GB"}, {2147483647, "2 GB"},
    };
    for (const auto& it : cases)
        EXPECT_EQ(formatByteCount(support, it.bytes), it.text);
}

TEST(Figures, TheLimitHoldsForEachKindAndCatchesOverflows)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        double staticBytes, dynamicBytes;
        bool hasDynamic, hasStatic;
        std::int32_t code;
    } cases[] = {
        {416, 2147483647.0, true, true, 0}, {416, 2147483648.0, true, true, 70},
        {2147483647.0, 416, true, true, 0}, {2147483648.0, 416, true, true, 72},
        {3e9, 3e9, true, true, 70},         {416, 0, true, true, 70},
        {416, -5, true, true, 70},          {0, 416, true, true, 72},
        {0, 416, true, false, 0},           {416, 0, false, true, 0},
        {416, nan, true, true, 70},         {416, nan, false, true, 70},
    };
    for (const auto& it : cases)
        EXPECT_EQ(checkDiskSpace({it.staticBytes, it.dynamicBytes}, it.hasDynamic, it.hasStatic), it.code)
            << it.staticBytes << " " << it.dynamicBytes;
}

TEST(Figures, TheLargestThatFitsIsWholeWhereAWholeOneFitsAndHasDecimalsElse)
{
    const struct {
        Range within;
        double greatest = 0;
        double finest = 0;
        std::optional<double> value;
    } cases[] = {
        {{0, 1e12}, 1234.9, 1e-3, 1234},
        {{0, 1e12}, 1, 1e-3, 1},
        {{0, 100}, 1e9, 1e-3, 100},
        {{0, 99.5}, 1e9, 1e-3, 99},
        {{0, 1e300}, 1e300, 1e-3, endless},
        {{0, 1e12}, 0.74, 1e-3, 0.7},
        {{0, 1e12}, 0.0749, 1e-3, 0.07},
        {{0, 1e12}, 0.0004, 1e-3, {}},
        {{0, 1e12}, 0.5, 1, {}},
        {{1.2, 1.9}, 1e9, 1e-3, 1.9},
        {{1000.55, 1e12}, 1000.7, 1e-3, 1000.7},
        {{5, 4}, 1e9, 1e-3, {}},
        {{5, 10}, 4, 1e-3, {}},
    };
    for (const auto& it : cases) {
        const auto found = largestThatFits(it.within, it.finest, [&](double v) { return v <= it.greatest; });
        EXPECT_EQ(found, it.value) << it.within.minimum << ".." << it.within.maximum << " up to " << it.greatest;
    }
}

} // namespace
} // namespace ko::test
