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

/// The system's local time, or a fixed time: one that is set, or the time of the last tick until `runOn`.
class QtClock : public Clock {
public:
    DateTime now() override;
    void standAt(std::optional<DateTime> time) { standing_ = time; }
    [[nodiscard]] std::optional<DateTime> standing() const { return standing_; }
    /// Fixes the clock at the present time until the next tick or `runOn`, and returns that time.
    DateTime tick();
    void runOn() { ticked_.reset(); }

private:
    std::optional<DateTime> standing_;
    std::optional<DateTime> ticked_;
};

} // namespace ko
