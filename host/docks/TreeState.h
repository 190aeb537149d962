#pragma once

#include "host/docks/InstrumentsModel.h"

#include <tuple>
#include <vector>

class QTreeView;

namespace ko {

/// What the user sees of the instruments' tree: which rows are expanded, selected and current. It outlives the rows, so
/// that they can be made again after an edit; rows are recognised by their instrument and their place in it.
class TreeState {
public:
    TreeState(const QTreeView& view, const InstrumentsModel& model);

    /// Restores what still exists.
    void restore(QTreeView& view, const InstrumentsModel& model) const;

private:
    using Key = std::tuple<const HostInstrument*, InstrumentRow::Kind, int, int, std::size_t>;

    [[nodiscard]] static Key keyOf(const InstrumentRow& row);
    void noteExpanded(const QTreeView& view, const InstrumentsModel& model, const QModelIndex& parent);
    void restoreRow(QTreeView& view, const InstrumentsModel& model, const QModelIndex& index) const;

    std::vector<Key> expanded_, selected_;       ///< sorted
    std::vector<const HostInstrument*> touched_; ///< instruments with such rows, sorted
    Key current_{};
    bool hasCurrent_ = false;
    int scrolled_ = 0;
};

} // namespace ko
