#pragma once

#include "widgets/support/Convert.h"
#include "widgets/support/Delay.h"
#include "widgets/support/Guarded.h"

#include <QApplication>
#include <QSet>
#include <deque>

namespace ko {

/// An application that survives exceptions from event handlers. Each is shown to the user in a message box after the
/// event. A failure that repeats with every paint event is shown once.
class GuardedApplication : public QApplication, public LeftOvers {
public:
    GuardedApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
    void leftOver(const QString& doing, const QString& reason) noexcept override;

    /// Texts of the boxes.
    Texts texts;
    /// Whether boxes are visible to a user; otherwise failures are only logged.
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
    Delay soon_;
    bool isShowing_ = false;
};

} // namespace ko
