#pragma once

#include "platform/Grid.h"
#include "widgets/bindings/Binding.h"
#include "widgets/bindings/CellEditor.h"

#include <QTableWidget>

namespace ko {

/// A grid of names and values in a table; the id column is hidden. Value cells are check boxes, drop-down lists and
/// texts; a click, F2, Enter or typing opens a text, and the space bar activates the other two. The table keeps its
/// selection and scroll position when values change.
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
    void showCheck(int row);
    void showList(int row);
    void showText(int row);
    void showWidths();
    void reportSize();
    template <class W> W* cellWidget(int row);
    bool edited(int row, const QString& text);
    bool open(int row);
    bool keyPressed(const QKeyEvent& key);
    void focusChanged(const QFocusEvent& event);

    Grid& grid_;
    QTableWidget& table_;
    CellEditor editor_;
};

} // namespace ko
