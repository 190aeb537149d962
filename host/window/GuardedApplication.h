#pragma once

#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"

#include <QApplication>
#include <QSet>
#include <QTimer>
#include <deque>

namespace ko {

/// An application that no failure ends: what an event's handler throws is left over, and what is left over is shown to
/// the user in a box of its own, once the event is done with. What fails again whenever it is painted is shown once.
class GuardedApplication : public QApplication, public LeftOvers {
public:
    GuardedApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
    void leftOver(const QString& doing, const QString& reason) noexcept override;

    /// Of the boxes.
    Texts texts;
    /// Whether there is a user who sees boxes; failures are only logged otherwise.
    bool showsFailures = true;

private:
    struct Failed {
        QString doing, reason;
        bool operator==(const Failed&) const = default;
    };

    void showWaiting();
    void show(const Failed& failed);
    [[nodiscard]] QString text(int number) const { return texts ? texts(number) : QString(); }

    std::deque<Failed> waiting_;
    QSet<QString> painted_; ///< reasons
    QTimer soon_;
    bool isShowing_ = false;
};

} // namespace ko
