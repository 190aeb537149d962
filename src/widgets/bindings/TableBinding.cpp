#include "widgets/bindings/TableBinding.h"

#include "widgets/bindings/FormView.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/ShownText.h"

#include <QHeaderView>
#include <algorithm>

namespace ko {

namespace {

constexpr int linesOfCell = 2;

int longestWord(const QFontMetrics& metrics, const QString& text)
{
    int longest = 0;
    for (const QString& word : text.split(u' '))
        longest = std::max(longest, metrics.horizontalAdvance(word));
    return longest;
}

QColor mixed(const QColor& one, const QColor& other, double share)
{
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

} // namespace

QSize TableWidget::sizeHint() const
{
    const int frame = 2 * frameWidth();
    const QSize whole(verticalHeader()->sizeHint().width() + horizontalHeader()->length() + frame,
                      horizontalHeader()->sizeHint().height() + verticalHeader()->length() + frame);
    return whole.boundedTo({fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 30});
}

QSize TableWidget::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 8};
}

TableBinding::TableBinding(FormView& view, Table& control, TableWidget& table)
    : Binding(view, control, table), content_(control), table_(table)
{
    table.setTabKeyNavigation(false);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setCornerButtonEnabled(false);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    for (QHeaderView* header : {table.horizontalHeader(), table.verticalHeader()}) {
        header->setSectionResizeMode(QHeaderView::Fixed);
        header->setSectionsClickable(false);
    }
    table.verticalHeader()->setMaximumWidth(table.fontMetrics().averageCharWidth() * 24);
    refreshAll();
}

void TableBinding::refresh(Aspect aspect)
{
    if (aspect == Aspect::Items)
        showContent();
    else if (aspect == Aspect::Selection)
        table_.setCurrentCell(static_cast<int>(content_.shownRow()), static_cast<int>(content_.shownColumn()),
                              QItemSelectionModel::NoUpdate);
    else
        Binding::refresh(aspect);
}

void TableBinding::showContent()
{
    QStringList headers;
    for (const std::string& column : content_.columns())
        headers << toLine(column);
    table_.setColumnCount(static_cast<int>(headers.size()));
    table_.setHorizontalHeaderLabels(headers);
    table_.setRowCount(static_cast<int>(content_.rows().size()));
    for (int row = 0; row < table_.rowCount(); ++row)
        showRow(row);
    if (!table_.currentIndex().isValid())
        table_.setCurrentCell(0, 0, QItemSelectionModel::NoUpdate);
    showSizes();
}

void TableBinding::showRow(int row)
{
    const Table::Row& content = content_.rows()[static_cast<std::size_t>(row)];
    auto* header = new QTableWidgetItem(toLine(content.header));
    header->setToolTip(plainTip(header->text()));
    header->setData(Qt::TextAlignmentRole, static_cast<int>(Qt::AlignLeft) | Qt::AlignVCenter | Qt::TextWordWrap);
    table_.setVerticalHeaderItem(row, header);
    for (int column = 0; column < table_.columnCount(); ++column)
        showCell(row, column, content.cells.at(static_cast<std::size_t>(column)));
}

void TableBinding::showCell(int row, int column, const Table::Cell& cell)
{
    QTableWidgetItem* item = table_.item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        item->setTextAlignment(Qt::AlignCenter);
        table_.setItem(row, column, item);
    }
    const QString meaning = toShown(cell.meaning);
    item->setText(toLine(cell.text));
    item->setToolTip(plainTip(meaning));
    item->setStatusTip(meaning);
    item->setData(Qt::AccessibleDescriptionRole, meaning);
    QFont font = table_.font();
    font.setBold(cell.emphasis == Table::Emphasis::strong);
    font.setItalic(cell.emphasis == Table::Emphasis::weak);
    item->setFont(font);
    item->setBackground(background(cell.emphasis));
}

/// Colours of the palette, so that text stays readable on each.
QColor TableBinding::background(Table::Emphasis emphasis) const
{
    const QPalette& palette = table_.palette();
    switch (emphasis) {
    case Table::Emphasis::strong: return mixed(palette.base().color(), palette.highlight().color(), 0.3);
    case Table::Emphasis::weak: return palette.alternateBase().color();
    case Table::Emphasis::none: break;
    }
    return palette.base().color();
}

void TableBinding::showSizes()
{
    QFont bold = table_.font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    int widest = 0;
    for (const std::string& column : content_.columns())
        widest = std::max(widest, metrics.horizontalAdvance(toLine(column)));
    for (const Table::Row& row : content_.rows())
        for (const Table::Cell& cell : row.cells)
            widest = std::max(widest, longestWord(metrics, toLine(cell.text)));
    const int margin = metrics.averageCharWidth();
    columnWidth_ = std::max(columnWidth_, widest + 2 * margin);
    table_.horizontalHeader()->setDefaultSectionSize(columnWidth_);
    table_.verticalHeader()->setDefaultSectionSize(linesOfCell * metrics.lineSpacing() + margin);
    table_.updateGeometry();
}

} // namespace ko
