#pragma once

#include "platform/Grid.h"
#include "widgets/Binding.h"

#include <QTableWidget>

namespace ko {

/// A grid of names and values in a table; the column of ids stays hidden.
class GridBinding : public Binding {
public:
    GridBinding(FormView& view, Grid& control, QTableWidget& table);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;

private:
    void showRows();
    void showHeader(int column);
    void showCell(int row, int column);
    void showWidths();

    Grid& grid_;
    QTableWidget& table_;
};

} // namespace ko
