#pragma once

#include <QtGlobal>
#include <exception>
#include <utility>

namespace ko {

/// Runs what the toolkit has called. Nothing may be thrown through the toolkit's event loop: a failure that gets
/// this far is logged, and the caller goes on.
template <class Function> void guarded(Function&& function) noexcept
{
    try {
        std::forward<Function>(function)();
    } catch (const std::exception& error) {
        qCritical("A failure was left over: %s", error.what());
    } catch (...) {
        qCritical("A failure of unknown kind was left over");
    }
}

} // namespace ko
