#pragma once

#include "widgets/support/Delay.h"
#include "widgets/support/Guarded.h"

#include <functional>

namespace ko {

/// Calls `act` after the present event has been handled, unless `owner` has been destroyed by then.
inline void later(QObject& owner, std::function<void()> act)
{
    auto* timer = new Delay(&owner);
    onSignal(timer, &QTimer::timeout, timer, [timer, act = std::move(act)] {
        timer->deleteLater();
        act();
    });
    timer->start(0);
}

} // namespace ko
