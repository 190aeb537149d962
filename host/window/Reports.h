#pragma once

#include "interfaces/ErrorReporter.h"
#include "widgets/support/Convert.h"

#include <QDockWidget>

class QListWidget;
class QToolButton;

namespace ko {

/// The last failures that the component has reported: a list in a dock, and a button for the status bar that counts
/// them and opens the list. Nothing pops up. There is room for a hundred.
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

/// The component's error reporter, which writes into the list as long as that lives.
std::shared_ptr<ErrorReporter> makeReporter(Reports& reports);

} // namespace ko
