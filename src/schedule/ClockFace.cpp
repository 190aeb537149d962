#include "schedule/ClockFace.h"

#include "platform/DateTimes.h"
#include "platform/NumberText.h"

#include <cmath>

namespace ko {

namespace {

constexpr double pi = 3.14159265358979;

/// A hand that points `turns` full turns clockwise from the top.
Drawing::Line hand(Drawing::Position centre, double length, int width, double turns)
{
    const double angle = pi / 2 - 2 * pi * turns;
    return {centre, {centre.x + length * std::cos(angle), centre.y - length * std::sin(angle)}, width};
}

} // namespace

Drawing clockFace(double width, double height, DateTime time)
{
    const std::int32_t cx = toLong(width) / 2;
    const std::int32_t cy = toLong(height) / 2;
    const std::int32_t radius = cx * 5 / 6;
    const std::int32_t longHand = radius * 7 / 8;
    const std::int32_t shortHand = longHand * 2 / 3;
    const Drawing::Position centre{static_cast<double>(cx), static_cast<double>(cy)};
    const DateParts parts = dateParts(time);
    const double minutes = parts.minute + parts.second / 60.0;
    const double hours = parts.hour + parts.minute / 60.0;
    return {{{centre, 1.1 * longHand}},
            {hand(centre, longHand, 1, parts.second / 60.0), hand(centre, longHand, 3, minutes / 60.0),
             hand(centre, shortHand, 3, hours / 12.0)}};
}

} // namespace ko
