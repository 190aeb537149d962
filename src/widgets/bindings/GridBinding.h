#pragma once

#include "platform/Grid.h"
#include "widgets/bindings/Binding.h"
#include "widgets/bindings/CellEditor.h"
#include "widgets/bindings/GridCells.h"

#include <QTableWidget>

namespace ko {

/// A grid of names and values in a table. `GridCells` shows its cells; a click, F2, Enter or typing opens a text, and
/// the space bar activates a check box or list. The table keeps its selection and scroll position when values change.
class GridBinding : public Binding {
public:
    GridBinding(FormView& view, Grid& control, QTableWidget& table);

    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void refresh(Aspect aspect) override;
    [[nodiscard]] bool showsValue() const override { return true; }

private:
    void reportSize();
    bool edited(int row, const QString& text);
    bool open(int row);
    bool keyPressed(const QKeyEvent& key);
    void focusChanged(const QFocusEvent& event);

    Grid& grid_;
    QTableWidget& table_;
    CellEditor editor_;
    GridCells cells_;
};

} // namespace ko
