#pragma once

#include "host/setup/InstrumentEdits.h"
#include "host/sheet/InstrumentRow.h"

#include <QKeySequence>
#include <QObject>
#include <functional>
#include <vector>

class QAction;
class QTreeView;

namespace ko {

class InstrumentsModel;

/// What the instruments' tree asks of its window.
struct InstrumentEditing {
    /// See `FrameInstruments`.
    std::function<bool(const InstrumentChange& change)> edit;
    std::function<void()> add;
};

/// The user's edits of the instruments in their tree, as actions with keys. They apply to the selected rows. A key of
/// an action goes to it before the menus of the window.
class InstrumentActions : public QObject {
public:
    /// Adds the actions to the tree. All arguments must outlive this object.
    InstrumentActions(QTreeView& tree, const InstrumentsModel& model, const Texts& texts,
                      const InstrumentEditing& editing);

    [[nodiscard]] QAction& addAction() { return *add_; }
    /// Enables the actions that the selected rows allow.
    void follow();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* make(int text, const char* name, const QKeySequence& key, std::function<void()> act);
    [[nodiscard]] bool change(const InstrumentChange& change) const;
    /// The selected instruments as indices, in increasing order.
    [[nodiscard]] std::vector<std::size_t> selectedInstruments() const;
    void remove();

    QTreeView& tree_;
    const InstrumentsModel& model_;
    Texts texts_;
    const InstrumentEditing& editing_;
    std::vector<QAction*> actions_;
    QAction *add_, *remove_;
};

} // namespace ko
