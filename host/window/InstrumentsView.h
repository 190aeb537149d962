#pragma once

#include "host/window/InstrumentsModel.h"

#include <QDialog>
#include <QDockWidget>
#include <QPointer>

class QAction;
class QTreeView;

namespace ko {

/// The instruments behind the page, in a dock: their values of this moment, a tick for each channel that is enabled,
/// and failures to be had. What is shown is read when it is drawn, so that a thousand instruments cost no more than
/// the rows in sight.
class InstrumentsView : public QDockWidget {
public:
    InstrumentsView(const Texts& texts, const Locale& locale, QWidget* parent);

    /// Shows these in place of others; what was asked about one of those is no longer asked.
    void show(const SimulatedDrivers& drivers);
    /// A value has changed.
    void refresh();

    [[nodiscard]] InstrumentsModel& model() { return *model_; }

    /// An operation of an instrument has been made to fail, or healed; no operation stands for all.
    std::function<void(const SimulatedDriver& driver, const std::string& operation, bool fails)> faultChanged;
    /// The user wants the instruments handed over to the page again.
    std::function<void()> handOver;

private:
    void makeActions();
    void askForFaults();

    Texts texts_;
    InstrumentsModel* model_;
    QTreeView* view_;
    QAction* faults_ = nullptr;
    QAction* handOver_ = nullptr;
    QPointer<QDialog> faultDialog_;
};

} // namespace ko
