#pragma once

#include "host/docks/InstrumentActions.h"
#include "host/docks/InstrumentsModel.h"
#include "host/docks/PropertiesAction.h"

#include <QDialog>
#include <QDockWidget>
#include <QPointer>

class QAction;
class QTreeView;

namespace ko {

/// A dock with the page's instruments: their present values, a check box for each channel, and simulated faults. Values
/// are read when they are drawn, so that the cost depends on the visible rows, not on the number of instruments.
class InstrumentsView : public QDockWidget {
public:
    InstrumentsView(const Texts& texts, const Locale& locale, QWidget* parent);

    /// Shows these instruments instead of the previous ones, and closes a fault dialog of those. Rows of instruments
    /// that are shown again stay as they are.
    void show(const HostInstruments& drivers);
    /// Redraws the values.
    void refresh();

    /// Takes a name that is being typed.
    void finishRename();

    /// Selects an instrument.
    void select(std::size_t instrument);
    /// Whether a channel is selected, by itself or by its group or instrument.
    [[nodiscard]] bool isSelected(std::size_t instrument, int group, int channel) const;
    /// Called when the selection has changed.
    std::function<void()> selectionChanged;

    [[nodiscard]] InstrumentsModel& model() { return *model_; }
    /// Set by the window.
    [[nodiscard]] InstrumentDescribing& describing() { return describing_; }
    [[nodiscard]] InstrumentEditing& editing() { return editing_; }

    /// Called after an operation has been set to fail or to work again. An empty operation means all operations.
    std::function<void(const HostInstrument& driver, const std::string& operation, bool fails)> faultChanged;
    /// Called when the user wants the instruments handed over to the page again.
    std::function<void()> handOver;

private:
    void makeProperties(const Locale& locale);
    void makeActions();
    void askForFaults();

    Texts texts_;
    InstrumentsModel* model_;
    QTreeView* view_;
    InstrumentDescribing describing_;
    PropertiesAction* properties_ = nullptr;
    InstrumentEditing editing_;
    InstrumentActions* edits_ = nullptr;
    QAction* faults_ = nullptr;
    QAction* handOver_ = nullptr;
    QPointer<QDialog> faultDialog_;
};

} // namespace ko
