#include "widgets/bindings/GridCells.h"

#include "widgets/bindings/CellEditor.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Guarded.h"
#include "widgets/support/ShownText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QWheelEvent>

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

/// A centred check box. Like the list it takes no focus; the table keeps it.
class CheckCell : public QWidget {
public:
    CheckCell() : box(new QCheckBox(this))
    {
        box->setFocusPolicy(Qt::NoFocus);
        setAutoFillBackground(true);
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(box, 0, Qt::AlignCenter);
        showFrame();
    }

    QCheckBox* box;

protected:
    void changeEvent(QEvent* event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            showFrame();
    }

private:
    /// A style may derive the frame from the window's colour, which is invisible on a dark field.
    void showFrame()
    {
        QPalette seen = palette();
        if (!isDark(seen.color(QPalette::Base)))
            return box->setPalette({});
        seen.setColor(QPalette::Window, seen.color(QPalette::Text));
        box->setPalette(seen);
    }
};

class ListCell : public QComboBox {
public:
    ListCell()
    {
        setFocusPolicy(Qt::NoFocus);
        setFrame(false);
    }

protected:
    /// The wheel scrolls the table and changes no value.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QStringList textsOf(const std::vector<std::string>& choices)
{
    QStringList texts;
    for (const std::string& choice : choices)
        texts.push_back(toLine(choice));
    return texts;
}

} // namespace

GridCells::GridCells(Grid& grid, QTableWidget& table, const CellEditor& editor)
    : grid_(grid), table_(table), editor_(editor)
{
    table.setColumnCount(shownColumns);
}

QString GridCells::checkText(bool on)
{
    return on ? QStringLiteral("True") : QStringLiteral("False");
}

QWidget* GridCells::widget(int row) const
{
    return table_.cellWidget(row - 1, Grid::valueColumn);
}

QCheckBox* GridCells::check(int row) const
{
    const auto* cell = dynamic_cast<CheckCell*>(widget(row));
    return cell ? cell->box : nullptr;
}

QComboBox* GridCells::list(int row) const
{
    return dynamic_cast<ListCell*>(widget(row));
}

void GridCells::show()
{
    table_.setRowCount(grid_.rowCount());
    for (int column = 0; column < shownColumns; ++column) {
        showHeader(column);
        for (int row = 1; row <= grid_.rowCount(); ++row)
            showCell(row, column);
    }
    for (int row = 1; row <= grid_.rowCount(); ++row)
        showValue(row);
    showWidths();
}

void GridCells::showHeader(int column)
{
    const Grid::Cell& cell = grid_.cell(0, column);
    auto* item = new QTableWidgetItem(toLine(cell.value));
    item->setFont(fontOf(table_, grid_.colHeaderStyle().font));
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_.setHorizontalHeaderItem(column, item);
}

void GridCells::showCell(int row, int column)
{
    const Grid::Cell& cell = grid_.cell(row, column);
    QTableWidgetItem* item = table_.item(row - 1, column);
    if (!item) {
        item = new QTableWidgetItem;
        table_.setItem(row - 1, column, item);
    }
    item->setText(toLine(cell.value));
    // Read-only cells do not look like a field.
    const SystemColor interior = cell.style.readOnly ? SystemColor::inactiveBorder : cell.style.interior;
    item->setBackground(table_.palette().brush(roleOf(interior)));
    const bool isRight = cell.style.alignment == CellStyle::Alignment::right;
    item->setTextAlignment((isRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
}

void GridCells::showValue(int row)
{
    const CellStyle::Control kind = grid_.cell(row, Grid::valueColumn).style.control;
    // While the form is only read, the chosen entry is shown as a text, which can be copied.
    switch (kind == CellStyle::Control::list && grid_.isRead() ? CellStyle::Control::edit : kind) {
    case CellStyle::Control::check: return showCheck(row);
    case CellStyle::Control::list: return showList(row);
    case CellStyle::Control::edit:
        if (widget(row) && widget(row) != editor_.box())
            table_.removeCellWidget(row - 1, Grid::valueColumn);
    }
}

/// The cell's widget of type `W`; replaces a widget of another type.
template <class W> W* GridCells::cellWidget(int row)
{
    auto* own = dynamic_cast<W*>(widget(row));
    if (!own) {
        own = new W;
        table_.setCellWidget(row - 1, Grid::valueColumn, own);
    }
    return own;
}

void GridCells::showCheck(int row)
{
    QCheckBox* box = cellWidget<CheckCell>(row)->box;
    box->disconnect(this);
    box->setChecked(checkState(grid_.cell(row, Grid::valueColumn).value).value_or(false));
    box->setEnabled(grid_.isEditable(row) || grid_.isRead());
    box->setAttribute(Qt::WA_TransparentForMouseEvents, !grid_.isEditable(row));
    box->setAccessibleName(toLine(grid_.cell(row, Grid::nameColumn).value));
    onSignal(box, &QCheckBox::clicked, this, [this, row](bool on) { edited(row, checkText(on)); });
}

void GridCells::showList(int row)
{
    const Grid::Cell& cell = grid_.cell(row, Grid::valueColumn);
    auto* list = cellWidget<ListCell>(row);
    list->disconnect(this);
    list->clear();
    const std::vector<std::string>& choices = cell.style.choices;
    list->addItems(textsOf(choices));
    // Also shows a value that is not among the choices.
    list->setPlaceholderText(toLine(cell.value));
    const auto found = std::find(choices.begin(), choices.end(), cell.value);
    list->setCurrentIndex(found == choices.end() ? -1 : static_cast<int>(found - choices.begin()));
    list->setEnabled(grid_.isEditable(row));
    list->setAccessibleName(toLine(grid_.cell(row, Grid::nameColumn).value));
    onSignal(
        list, &QComboBox::activated, this,
        [this, row, choices](int index) { edited(row, toQt(choices[static_cast<std::size_t>(index)])); },
        Qt::QueuedConnection);
}

void GridCells::showWidths()
{
    const int inner = table_.viewport()->width();
    const std::int32_t wanted = grid_.columnWidth(0);
    table_.setColumnWidth(0, wanted > 0 ? std::min(toPixels(table_, wanted), inner * 3 / 4) : inner / 2);
}

} // namespace ko
