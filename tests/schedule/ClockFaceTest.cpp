#include "schedule/ClockFace.h"

#include "platform/DateTimes.h"

#include <gtest/gtest.h>

namespace ko::test {
namespace {

struct Tips {
    int hour = 0, minute = 0, second = 0;
    Drawing::Position secondHand, minuteHand, hourHand;
};

// For a picture of 240.4 by 199.6: centre (120, 100), radius 100, long hand 87, short hand 58.
const Tips clocks[] = {
    {3, 0, 0, {120, 13}, {120, 13}, {178, 100}},
    {0, 0, 30, {120, 187}, {124.553, 13.119}, {120, 42}},
    {18, 15, 0, {120, 13}, {207, 100}, {112.430, 157.504}},
    {21, 45, 15, {207, 100}, {33.030, 97.723}, {66.415, 77.804}},
};

void expectTip(const Drawing::Line& line, Drawing::Position tip, int width, const Tips& it)
{
    const std::string when = std::to_string(it.hour) + ":" + std::to_string(it.minute);
    EXPECT_NEAR(line.from.x, 120, 1e-9) << when;
    EXPECT_NEAR(line.from.y, 100, 1e-9) << when;
    EXPECT_NEAR(line.to.x, tip.x, 1e-3) << when;
    EXPECT_NEAR(line.to.y, tip.y, 1e-3) << when;
    EXPECT_EQ(line.width, width) << when;
}

TEST(ClockFace, HandsPointWhereTheTimeSaysAndAllMeasuresAreWholeUnits)
{
    for (const Tips& it : clocks) {
        const Drawing drawing = clockFace(240.4, 199.6, timeSerial(it.hour, it.minute, it.second));
        ASSERT_EQ(drawing.lines.size(), 3U);
        expectTip(drawing.lines[0], it.secondHand, 1, it);
        expectTip(drawing.lines[1], it.minuteHand, 3, it);
        expectTip(drawing.lines[2], it.hourHand, 3, it);
        ASSERT_EQ(drawing.circles.size(), 1U);
        EXPECT_NEAR(drawing.circles[0].radius, 1.1 * 87, 1e-9);
    }
}

} // namespace
} // namespace ko::test
