#include "host/chart/ChartTime.h"
#include "host/chart/ChartTexts.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace ko::test {
namespace {

TEST(ChartTimeTest, WhateverIsZoomedAndScrolledTheViewIsWithinTheTimeAndItsMiddleStays)
{
    std::mt19937 random(3);
    for (const double end : {0.0, 1e-4, 0.7, 3.0, 12.345, 86400.0, 1e15}) {
        const double shortest = std::max(ChartTime::shortest, end * 1e-12);
        ChartTime time;
        for (int i = 0; i < 2000; ++i) {
            const double before = time.span(end);
            const auto from = [&] { return time.view(end, 1000000).from; };
            const double middle = from() + before / 2.0;
            switch (random() % 6) {
            case 0: time.follow(10.0); break;
            case 1: time.showAll(); break;
            case 2: time.followEnd(); break;
            case 3: time.scroll(static_cast<int>(random() % 1001), end); break;
            case 4: {
                time.zoom(true, end);
                EXPECT_TRUE(time.span(end) < before || before <= 2 * shortest) << before;
                const bool isClamped = from() <= 0.0 || from() + time.span(end) >= end * (1 - 1e-6);
                EXPECT_TRUE(isClamped || std::abs(from() + time.span(end) / 2.0 - middle) < 2e-6 * before + 1e-15 * end)
                    << before;
                break;
            }
            default: time.zoom(false, end); EXPECT_TRUE(time.span(end) > before || time.span(end) >= end);
            }
            const double last = from() + time.span(end);
            ASSERT_TRUE(from() >= 0.0 && last <= std::max(end, time.span(end)) * (1 + 1e-9)) << from() << " " << last;
            const auto place = time.place(end);
            EXPECT_EQ(place.has_value(), time.span(end) < end);
            EXPECT_TRUE(!place || (*place >= 0 && *place <= ChartTime::scrollSteps));
        }
    }
}

TEST(ChartTextsTest, TimesHaveTheDecimalsOfTheirStep)
{
    Locale locale;
    locale.decimalSeparator = ",";
    const ChartTexts texts{[](int) { return QStringLiteral("%1 s"); }, locale};
    const struct {
        double seconds, step;
        const char* text;
    } cases[]{{0.0, 2.0, "0 s"},       {6.17, 0.002, "6,170 s"},      {0.1 + 0.2, 0.1, "0,3 s"},
              {60.0, 20.0, "0:01:00"}, {3599.9999, 0.5, "1:00:00,0"}, {86405.25, 0.05, "24:00:05,25"}};
    for (const auto& c : cases)
        EXPECT_EQ(texts.time(c.seconds, c.step).toStdString(), c.text);
}

} // namespace
} // namespace ko::test
