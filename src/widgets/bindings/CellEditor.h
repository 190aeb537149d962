#pragma once

#include "platform/Grid.h"
#include "widgets/support/Convert.h"

#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <QTableWidget>

namespace ko {

class FormView;

/// The text box over the grid's open value cell. Enter ends the edit, Escape drops it; what the grid refuses stays
/// open with the user's text.
class CellEditor : public QObject {
public:
    CellEditor(FormView& view, Grid& grid, QTableWidget& table) : view_(view), grid_(grid), table_(table) {}

    /// Brings the text box in line with the grid's open editor; there is none while no cell is open.
    void follow();
    /// The text box, null while no cell is open.
    [[nodiscard]] QLineEdit* box() const { return box_; }

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void open();
    void close();
    void showText();
    void typed();
    void selected();

    FormView& view_;
    Grid& grid_;
    QTableWidget& table_;
    QPointer<QLineEdit> box_;
    int row_ = 0; ///< the row that the box stands in, as the grid counts
    bool showing_ = false;
    bool isAway_ = false; ///< the focus was in the box and has left
};

} // namespace ko
