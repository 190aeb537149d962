#pragma once

#include "platform/Grid.h"

#include <QObject>
#include <QTableWidget>
#include <functional>

class QCheckBox;
class QComboBox;

namespace ko {

class CellEditor;

/// Shows a grid's names and values in the cells of a table; the id column is hidden. Value cells are check boxes,
/// drop-down lists and texts. Row numbers are those of the grid, whose row 0 is the header.
class GridCells : public QObject {
public:
    /// The text box of `editor` is kept in its cell. All arguments must outlive this object.
    GridCells(Grid& grid, QTableWidget& table, const CellEditor& editor);

    void show();
    void showWidths();

    /// Returns the widget in the value cell of a row; null if the cell is of another kind.
    [[nodiscard]] QCheckBox* check(int row) const;
    [[nodiscard]] QComboBox* list(int row) const;

    /// Called after the user has clicked a check box or chosen from a list, with the new value.
    std::function<void(int row, const QString& text)> edited;

    /// Returns the value of a check box.
    static QString checkText(bool on);

private:
    void showHeader(int column);
    void showCell(int row, int column);
    void showValue(int row);
    void showCheck(int row);
    void showList(int row);
    [[nodiscard]] QWidget* widget(int row) const;
    template <class W> W* cellWidget(int row);

    Grid& grid_;
    QTableWidget& table_;
    const CellEditor& editor_;
};

} // namespace ko
