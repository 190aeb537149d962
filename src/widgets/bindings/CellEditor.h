#pragma once

#include "platform/Grid.h"
#include "widgets/support/Convert.h"

#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <QTableWidget>

namespace ko {

class EntryMark;
class FormView;

/// The text box over the grid's open value cell. Enter ends the edit, Escape drops it; a refused edit stays open with
/// the user's text.
class CellEditor : public QObject {
public:
    CellEditor(FormView& view, Grid& grid, QTableWidget& table) : view_(view), grid_(grid), table_(table) {}

    /// Updates the text box from the grid's open editor; opens or closes it as needed.
    void follow();
    /// Updates the mark of a text that is not acceptable.
    void showMark();
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
    QPointer<EntryMark> mark_; ///< created for the first invalid text of the box
    int row_ = 0;              ///< the grid row of the box
    bool showing_ = false;
    bool isAway_ = false; ///< the box had the focus and has lost it
};

} // namespace ko
