#pragma once

#include "widgets/support/Guarded.h"

#include <QTimer>
#include <functional>

namespace ko {

/// Runs `act` as soon as the event at hand is done with, unless `owner` has gone by then.
inline void later(QObject& owner, std::function<void()> act)
{
    auto* timer = new QTimer(&owner);
    onSignal(timer, &QTimer::timeout, timer, [timer, act = std::move(act)] {
        timer->deleteLater();
        act();
    });
    timer->setSingleShot(true);
    timer->start(0);
}

} // namespace ko
