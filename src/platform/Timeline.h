#pragma once

#include "platform/CaptionControls.h"

#include <utility>
#include <vector>

namespace ko {

/// A line with marks in the order of time, not to scale. Its caption says the same in words.
class Timeline : public CaptionControl {
public:
    using CaptionControl::CaptionControl;

    [[nodiscard]] std::string_view typeName() const override { return "Timeline"; }

    /// A point in time; `time` and `distance`, from now, may be empty.
    struct Mark {
        std::string title, time, distance;
        bool isWarning = false;

        bool operator==(const Mark&) const = default;
    };
    /// The stretch after a mark; the one after the last mark is not shown.
    struct Stretch {
        enum class Kind : std::uint8_t { plain, uncertain, recording };
        Kind kind = Kind::plain;
        std::string text;

        bool operator==(const Stretch&) const = default;
    };
    struct Point {
        Mark mark;
        Stretch after;

        bool operator==(const Point&) const = default;
    };
    using Points = std::vector<Point>;

    [[nodiscard]] const Points& points() const { return points_; }
    void setPoints(Points points)
    {
        if (points_ == points)
            return;
        points_ = std::move(points);
        tellView(Aspect::Items);
    }

private:
    Points points_;
};

} // namespace ko
