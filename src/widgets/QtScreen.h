#pragma once

#include "platform/Services.h"

namespace ko {

/// The screen under the mouse cursor, in the toolkit's device-independent pixels.
class QtScreen : public Screen {
public:
    Point cursorPosition() override;
    std::optional<Rectangle> workArea() override;
    Point size() override;
    double twipsPerPixelX() override;
    double twipsPerPixelY() override;
    std::int32_t verticalScrollBarWidth() override;
    Font formFont() override { return {}; }
};

/// The system's local time, or a time that stands still.
class QtClock : public Clock {
public:
    DateTime now() override;
    void standAt(std::optional<DateTime> time) { standing_ = time; }

private:
    std::optional<DateTime> standing_;
};

} // namespace ko
