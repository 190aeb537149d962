#pragma once

#include "host/window/FrameWindow.h"

#include <QPixmap>
#include <span>
#include <string_view>

namespace ko::pictures {

/// A picture: what is done in a window that shows the demo set-up, and what is painted then.
struct Scene {
    std::string_view name;
    QPixmap (*paint)(FrameWindow& window);
};

std::span<const Scene> scenes();

} // namespace ko::pictures
