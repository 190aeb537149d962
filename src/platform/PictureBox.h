#pragma once

#include "platform/Control.h"

#include <vector>

namespace ko {

/// The contents of a picture, in units of its own, from the upper left corner, x to the right and y down.
struct Drawing {
    struct Position {
        double x = 0.0, y = 0.0;
    };
    struct Circle {
        Position centre;
        double radius = 0.0;
    };
    struct Line {
        Position from, to;
        int width = 1;
    };

    std::vector<Circle> circles;
    std::vector<Line> lines;
};

/// A surface that its form draws on.
class PictureBox : public Control {
public:
    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "PictureBox"; }

    /// Called by the view to paint a picture of this size.
    std::function<Drawing(double width, double height)> paint;
    /// Requests the view to repaint.
    void redraw() { tellView(Aspect::Text); }
};

} // namespace ko
