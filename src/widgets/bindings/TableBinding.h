#pragma once

#include "platform/Table.h"
#include "widgets/bindings/Binding.h"

#include <QTableWidget>

namespace ko {

/// A table that prefers a size for all of its cells and scrolls when there is less room.
class TableWidget : public QTableWidget {
public:
    using QTableWidget::QTableWidget;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
};

/// A read-only table. Its columns are as wide as their longest word; the current cell is kept when the content changes.
class TableBinding : public Binding {
public:
    TableBinding(FormView& view, Table& control, TableWidget& table);

protected:
    void refresh(Aspect aspect) override;

private:
    void showContent();
    void showRow(int row);
    void showCell(int row, int column, const Table::Cell& cell);
    void showSizes();
    [[nodiscard]] QColor background(Table::Emphasis emphasis) const;

    Table& content_;
    TableWidget& table_;
    int columnWidth_ = 0; ///< never shrinks, so that nothing moves while the user chooses
};

} // namespace ko
