#pragma once

#include "host/setup/InstrumentEdits.h"
#include "host/setup/PlacedChanges.h"
#include "widgets/support/Convert.h"

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
    InstrumentActions(QTreeView& tree, InstrumentsModel& model, const Texts& texts, const InstrumentEditing& editing);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        int text;
        const char* name;
        QKeySequence key;
    };
    QAction* make(const Entry& entry, std::function<void()> act);
    void separate();
    void makeListActions();
    void makePartActions();
    void follow();

    /// Makes a change, then selects the places that it returns.
    void change(const std::function<SetupPlaces(Setup& setup)>& change);
    /// The selected instruments, groups and channels, without those within another.
    [[nodiscard]] SetupPlaces selected() const;
    /// The place of the current row, or of the instrument, group or channel that it belongs to; none without a row.
    [[nodiscard]] std::optional<SetupPlace> current() const;
    void beginRename();
    void remove();
    void duplicate();
    void move(bool down);
    void addPart(bool isChannel);
    void enable(bool on);
    void chooseTriggerSource();
    bool switchSelected();

    QTreeView& tree_;
    InstrumentsModel& model_;
    Texts texts_;
    const InstrumentEditing& editing_;
    std::vector<QAction*> all_;
    std::vector<QAction*> forSelected_;
    std::vector<QAction*> forCurrent_;
    QAction* trigger_ = nullptr;
};

} // namespace ko
