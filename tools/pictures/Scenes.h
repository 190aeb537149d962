#pragma once

#include "host/window/FrameWindow.h"

#include <QPixmap>
#include <span>
#include <string_view>

namespace ko::pictures {

/// A picture: prepares a window that shows the demo set-up, and paints it or a part of it.
struct Scene {
    std::string_view name;
    QPixmap (*paint)(FrameWindow& window);
};

std::span<const Scene> scenes();

} // namespace ko::pictures
