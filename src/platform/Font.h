#pragma once

#include <string>

namespace ko {

/// The font of a control. An empty face name and a size of 0 mean the system's default.
struct Font {
    std::string name;
    double size = 0.0; ///< in points
    bool bold = false;
    bool italic = false;
    bool strikethrough = false;
    bool underline = false;
    int charset = 1; ///< 1 is the default character set
    int weight = 400;

    bool operator==(const Font&) const = default;
};

} // namespace ko
