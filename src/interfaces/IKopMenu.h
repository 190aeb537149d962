#pragma once

#include <cstdint>

namespace ko {

/// Menu commands that a host routes to the document.
namespace command {
inline constexpr std::int32_t acceptEntry = 1;
inline constexpr std::int32_t erase = 32774;
inline constexpr std::int32_t copy = 57634;
inline constexpr std::int32_t cut = 57635;
inline constexpr std::int32_t paste = 57637;
inline constexpr std::int32_t help = 57670;
} // namespace command

/// The host's menu. All calls are made on the user-interface thread; none throws.
class IKopMenu {
public:
    /// Runs the command on the focused control; an unknown command does nothing. The host is expected to call
    /// `OnUpdateCommandUI` first.
    virtual void OnCommand(std::int32_t commandId) = 0;

    /// Sets `enable` to 1 when the command applies now, else to 0.
    virtual void OnUpdateCommandUI(std::int32_t commandId, std::int32_t& enable) = 0;

protected:
    ~IKopMenu() = default;
};

} // namespace ko
