#pragma once

#include "interfaces/ErrorReporter.h"
#include "widgets/support/Convert.h"

#include <QDockWidget>

class QListWidget;
class QToolButton;

namespace ko {

/// A dock with the last 100 failures that the component has reported, and a button for the status bar that shows their
/// number and opens the dock. No message box is shown.
class Reports : public QDockWidget {
public:
    Reports(const Texts& texts, QWidget* parent);

    void add(std::int32_t number, const QString& source, const QString& description);
    [[nodiscard]] QToolButton& button() { return *button_; }

private:
    static constexpr int kept = 100;

    QListWidget* list_;
    QToolButton* button_;
    QString countText_;
    int count_ = 0;
};

/// Returns the component's error reporter, which adds to `reports` and does nothing after its destruction.
std::shared_ptr<ErrorReporter> makeReporter(Reports& reports);

} // namespace ko
