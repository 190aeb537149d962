#include "widgets/GridBinding.h"

#include "widgets/FormView.h"

#include <QEvent>
#include <QHeaderView>

namespace ko {

namespace {

constexpr int shownColumns = 2;

QFont fontOf(const QTableWidget& table, const Font& font)
{
    QFont own = table.font();
    own.setBold(font.bold);
    own.setItalic(font.italic);
    return own;
}

} // namespace

GridBinding::GridBinding(FormView& view, Grid& control, QTableWidget& table)
    : Binding(view, control, table), grid_(control), table_(table)
{
    table.setColumnCount(shownColumns);
    table.setTabKeyNavigation(false);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.verticalHeader()->hide();
    table.horizontalHeader()->setStretchLastSection(true);
    table.horizontalHeader()->setHighlightSections(false);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.viewport()->installEventFilter(this);
    refreshAll();
}

void GridBinding::refresh(Aspect aspect)
{
    if (aspect == Aspect::Items)
        showRows();
    else
        Binding::refresh(aspect);
}

void GridBinding::showRows()
{
    table_.setRowCount(grid_.rowCount());
    for (int column = 0; column < shownColumns; ++column) {
        showHeader(column);
        for (int row = 1; row <= grid_.rowCount(); ++row)
            showCell(row, column);
    }
    showWidths();
}

void GridBinding::showHeader(int column)
{
    const Grid::Cell& cell = grid_.cell(0, column);
    auto* item = new QTableWidgetItem(toQt(cell.value));
    item->setFont(fontOf(table_, grid_.colHeaderStyle().font));
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_.setHorizontalHeaderItem(column, item);
}

void GridBinding::showCell(int row, int column)
{
    const Grid::Cell& cell = grid_.cell(row, column);
    auto* item = new QTableWidgetItem(toQt(cell.value));
    item->setBackground(table_.palette().brush(roleOf(cell.style.interior)));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    table_.setItem(row - 1, column, item);
}

void GridBinding::showWidths()
{
    // The control's widths give the proportion; the table always fills its place.
    const qint64 inner = table_.viewport()->width();
    const qint64 name = grid_.columnWidth(0);
    const qint64 whole = name + grid_.columnWidth(1);
    table_.setColumnWidth(0, static_cast<int>(whole > 0 ? inner * name / whole : inner / 2));
}

bool GridBinding::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        grid_.setInnerWidth(toTwips(table_, table_.viewport()->width()));
        showWidths();
    }
    if (event->type() == QEvent::PaletteChange)
        showRows();
    return false;
}

} // namespace ko
