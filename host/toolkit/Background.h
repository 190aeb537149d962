#pragma once

#include "widgets/support/Guarded.h"

#include <QPointer>
#include <QTimer>
#include <future>
#include <thread>

namespace ko {

/// Runs `work` on a thread of its own, and passes its result to `use` on the user-interface thread, unless `owner` has
/// been destroyed by then. For calls of the system that may never return: nothing waits for the thread.
template <class Work, class Use> void inBackground(QObject& owner, Work work, Use use)
{
    constexpr int period = 10; // milliseconds
    using Result = decltype(work());
    std::packaged_task<Result()> task(std::move(work));
    auto result = std::make_shared<std::future<Result>>(task.get_future());
    std::thread(std::move(task)).detach();
    auto* const timer = new QTimer(&owner);
    onSignal(timer, &QTimer::timeout, timer, [timer, result, use = std::move(use)] {
        if (result->wait_for(std::chrono::seconds(0)) != std::future_status::ready)
            return;
        timer->stop();
        timer->deleteLater();
        use(result->get());
    });
    timer->start(period);
}

} // namespace ko
