#include "host/docks/TreeState.h"

#include <QScrollBar>
#include <QTreeView>
#include <algorithm>

namespace ko {

namespace {

template <class T> bool has(const std::vector<T>& sorted, const T& value)
{
    return std::binary_search(sorted.begin(), sorted.end(), value);
}

} // namespace

TreeState::Key TreeState::keyOf(const InstrumentRow& row)
{
    return {&row.driver(), row.kind(), row.group(), row.channel(), row.item()};
}

TreeState::TreeState(const QTreeView& view, const InstrumentsModel& model)
    : scrolled_(view.verticalScrollBar()->value())
{
    noteExpanded(view, model, {});
    for (const QModelIndex& index : view.selectionModel()->selectedRows())
        selected_.push_back(keyOf(*model.row(index)));
    if (const InstrumentRow* const row = model.row(view.currentIndex())) {
        current_ = keyOf(*row);
        hasCurrent_ = true;
        touched_.push_back(&row->driver());
    }
    for (const auto* keys : {&expanded_, &selected_})
        for (const Key& key : *keys)
            touched_.push_back(std::get<0>(key));
    std::sort(expanded_.begin(), expanded_.end());
    std::sort(selected_.begin(), selected_.end());
    std::sort(touched_.begin(), touched_.end());
}

void TreeState::noteExpanded(const QTreeView& view, const InstrumentsModel& model, const QModelIndex& parent)
{
    for (int i = 0; i < model.rowCount(parent); ++i) {
        const QModelIndex index = model.index(i, 0, parent);
        if (!view.isExpanded(index))
            continue;
        expanded_.push_back(keyOf(*model.row(index)));
        noteExpanded(view, model, index);
    }
}

void TreeState::restore(QTreeView& view, const InstrumentsModel& model) const
{
    for (int i = 0; i < model.rowCount(); ++i) {
        const QModelIndex index = model.index(i, 0);
        if (has<const HostInstrument*>(touched_, &model.row(index)->driver()))
            restoreRow(view, model, index);
    }
    view.verticalScrollBar()->setValue(scrolled_);
}

void TreeState::restoreRow(QTreeView& view, const InstrumentsModel& model, const QModelIndex& index) const
{
    const Key key = keyOf(*model.row(index));
    if (has(selected_, key))
        view.selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    if (hasCurrent_ && key == current_)
        view.selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    if (has(expanded_, key))
        view.setExpanded(index, true);
    // A selected row may be below a collapsed one.
    for (int i = 0; i < model.rowCount(index); ++i)
        restoreRow(view, model, model.index(i, 0, index));
}

} // namespace ko
