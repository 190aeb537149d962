#pragma once

#include "interfaces/ErrorReporter.h"
#include "widgets/support/Convert.h"

#include <QDockWidget>

class QToolButton;
class QTreeWidget;

namespace ko {

/// A dock with the last 100 failures that the component has reported, each with its time and, if a call to an
/// instrument has caused it, the instrument and the setting; they can be copied and cleared. A button for the status
/// bar shows their number and opens the dock. No message box is shown.
class Reports : public QDockWidget {
public:
    Reports(const Texts& texts, QWidget* parent);

    /// Notes a call that has failed. The next report with this number and reason is about it.
    void callFailed(const QString& instrument, const QString& failedSetting, std::int32_t number,
                    const QString& reason);
    void add(std::int32_t number, const QString& source, const QString& description);
    /// Adds a failure of the program itself.
    void add(const QString& source, const QString& failure) { addRow({}, failure, source); }
    void clear();
    /// Copies the selected reports, or all if none is selected, to the clipboard as lines with tab-separated cells.
    void copy();

    [[nodiscard]] QToolButton& button() { return *button_; }

private:
    enum Column { Time, Instrument, Failure, ReportedBy, columns };
    static constexpr int kept = 100;

    struct Call {
        QString instrument, failedSetting;
        std::int32_t number = 0;
        QString reason;
    };

    void addRow(const QString& instrument, const QString& failure, const QString& source);
    void makeView(const Texts& texts);
    void makeButton(const QString& hint);
    void showCount();

    QTreeWidget* list_;
    QToolButton* button_;
    QString countText_, failureText_;
    Call failed_; ///< the last failed call; empty once it has been reported
    int count_ = 0;
};

/// Returns the component's error reporter, which adds to `reports` and does nothing after its destruction.
std::shared_ptr<ErrorReporter> makeReporter(Reports& reports);

} // namespace ko
