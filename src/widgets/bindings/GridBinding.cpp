#include "widgets/bindings/GridBinding.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/Guarded.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

namespace ko {

GridBinding::GridBinding(FormView& view, Grid& control, QTableWidget& table)
    : Binding(view, control, table), grid_(control), table_(table), editor_(view, control, table),
      cells_(control, table, editor_)
{
    table.setTabKeyNavigation(false);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.verticalHeader()->hide();
    table.horizontalHeader()->setStretchLastSection(true);
    table.horizontalHeader()->setHighlightSections(false);
    table.viewport()->installEventFilter(this);
    table.installEventFilter(this);
    onSignal(&table, &QTableWidget::cellClicked, this, [this](int row, int column) {
        if (column == Grid::valueColumn)
            open(row + 1);
    });
    cells_.edited = [this](int row, const QString& text) { edited(row, text); };
    refreshAll();
}

void GridBinding::refresh(Aspect aspect)
{
    switch (aspect) {
    case Aspect::Items: cells_.show(); break;
    case Aspect::Text:
    case Aspect::Selection: editor_.follow(); break;
    case Aspect::Mark: editor_.showMark(); break;
    case Aspect::Usability:
        Binding::refresh(aspect);
        cells_.show();
        break;
    default: Binding::refresh(aspect);
    }
}

void GridBinding::reportSize()
{
    const QScrollBar* bar = table_.verticalScrollBar();
    const int width = table_.viewport()->width() + (bar->isVisible() ? bar->width() : 0);
    grid_.setInnerWidth(toTwips(table_, width));
    // A style may know no height.
    const int rowHeight = std::max(table_.verticalHeader()->defaultSectionSize(), 1);
    grid_.setVisibleRows(table_.viewport()->height() / rowHeight);
}

/// Returns whether this object still exists afterwards.
bool GridBinding::edited(int row, const QString& text)
{
    if (!view_.act([&] { grid_.userEditedCell(row, fromQt(text)); }))
        return false;
    // Restores the displayed value if the grid has refused the edit.
    cells_.show();
    return true;
}

/// Activates the value cell of a row. Returns whether this object still exists afterwards.
bool GridBinding::open(int row)
{
    if (!grid_.isEditable(row))
        return true;
    if (const QCheckBox* check = cells_.check(row))
        return edited(row, GridCells::checkText(!check->isChecked()));
    if (QComboBox* list = cells_.list(row)) {
        list->showPopup();
        return true;
    }
    const FocusKeeper::Hold hold(view_.focus());
    return view_.act([&] { grid_.userOpenedCell(row); });
}

bool GridBinding::keyPressed(const QKeyEvent& key)
{
    const int row = table_.currentRow() + 1;
    if (editor_.box())
        return false;
    const bool opens = key.key() == Qt::Key_F2 || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter ||
                       key.key() == Qt::Key_Space;
    if (opens) {
        open(row);
        return true;
    }
    const bool types = !key.text().isEmpty() && key.text().at(0).isPrint() &&
                       !key.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier);
    if (!types || cells_.list(row) || cells_.check(row))
        return false;
    if (open(row) && editor_.box())
        editor_.box()->insert(key.text());
    return true;
}

/// Shows the current cell as selected only while the table has the focus; a focus change to a popup or another window
/// is ignored.
void GridBinding::focusChanged(const QFocusEvent& event)
{
    if (event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason)
        return;
    if (!event.gotFocus())
        table_.clearSelection();
    else if (table_.currentRow() < 0)
        table_.setCurrentCell(0, Grid::valueColumn);
    else
        table_.setCurrentCell(table_.currentRow(), table_.currentColumn());
}

bool GridBinding::eventFilter(QObject* object, QEvent* event)
{
    if (object == &table_) {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            focusChanged(*static_cast<QFocusEvent*>(event));
        return event->type() == QEvent::KeyPress && keyPressed(*static_cast<QKeyEvent*>(event));
    }
    if (event->type() == QEvent::Resize) {
        reportSize();
        cells_.showWidths();
    }
    if (event->type() == QEvent::PaletteChange)
        cells_.show();
    return false;
}

} // namespace ko
