#include "host/toolkit/GuardedApplication.h"

#include "host/support/HostTexts.h"
#include "widgets/support/Modal.h"
#include "widgets/support/PlainText.h"

#include <algorithm>

namespace ko {

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    onSignal(&soon_, &QTimer::timeout, this, [this] { showWaiting(); });
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
{
    const bool isPainting = event->type() == QEvent::Paint;
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        const QString reason = QString::fromUtf8(error.what());
        if (isPainting && painted_.contains(reason))
            return false;
        if (isPainting)
            painted_.insert(reason);
        tellLeftOver({}, std::current_exception());
    } catch (...) {
        tellLeftOver({}, std::current_exception());
    }
    return false;
}

void GuardedApplication::leftOver(const QString& doing, const QString& reason) noexcept
{
    if (!showsFailures)
        return;
    try {
        const Failed failed{doing, reason};
        if (std::find(waiting_.begin(), waiting_.end(), failed) == waiting_.end())
            waiting_.push_back(failed);
        soon_.start(0);
    } catch (...) {
        qCritical("A failure cannot be shown");
    }
}

void GuardedApplication::showWaiting()
{
    // A box runs its own event loop, in which further failures may occur.
    if (isShowing_)
        return;
    isShowing_ = true;
    while (!waiting_.empty()) {
        const Failed failed = waiting_.front();
        waiting_.pop_front();
        try {
            show(failed);
        } catch (const std::exception& error) {
            qCritical("A failure cannot be shown: %s", error.what());
        }
    }
    isShowing_ = false;
}

void GuardedApplication::show(const Failed& failed)
{
    const QString what =
        failed.doing.isEmpty() ? text(hostText::programFailed) : text(hostText::actionFailed).arg(failed.doing);
    QWidget* const modal = activeModalWidget();
    Modal<PlainBox>(QMessageBox::Warning, text(hostText::product), what, failed.reason, QMessageBox::Ok,
                    modal ? modal : activeWindow())
        .wait();
}

} // namespace ko
