#pragma once

#include <span>

namespace ko::test {

class Workplace;

/// Something that a user does with a window on purpose, or that happens to it. It may end with a dialog or a menu open,
/// and with the window destroyed.
struct WindowDeed {
    const char* name;
    int weight; ///< how often, in proportion
    void (*perform)(Workplace& place);
};

[[nodiscard]] std::span<const WindowDeed> windowDeeds();
[[nodiscard]] const WindowDeed& openingASetup();

} // namespace ko::test
