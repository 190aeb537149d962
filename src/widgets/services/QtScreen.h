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

/// The system's local time, or a time that stands still: one that is set, or the present one for as long as that is
/// wanted.
class QtClock : public Clock {
public:
    DateTime now() override;
    void standAt(std::optional<DateTime> time) { standing_ = time; }
    [[nodiscard]] std::optional<DateTime> standing() const { return standing_; }
    /// Goes on to the present time and stands there until the next tick, or until it runs on.
    DateTime tick();
    void runOn() { ticked_.reset(); }

private:
    std::optional<DateTime> standing_;
    std::optional<DateTime> ticked_;
};

} // namespace ko
