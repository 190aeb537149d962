#include "platform/Grid.h"

#include "platform/Failure.h"

#include <algorithm>

namespace ko {

namespace {

template <class Array> auto& at(Array& array, std::int32_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= array.size())
        fail(failure::subscriptOutOfRange);
    return array[static_cast<std::size_t>(index)];
}

} // namespace

Grid::Grid(Form& form, std::string name, Control* container) : Control(form, std::move(name), container)
{
    validate = [this] { return endEdit(); };
    lostFocus = [this] { dropEdit(); };
}

void Grid::setRowCount(std::int32_t count)
{
    dropEdit();
    rows_.resize(static_cast<std::size_t>(std::max(count, 0)) + 1);
    changed();
}

const Grid::Cell& Grid::cell(std::int32_t row, std::int32_t column) const
{
    return at(at(rows_, row), column);
}

void Grid::setCell(std::int32_t row, std::int32_t column, Cell cell)
{
    at(at(rows_, row), column) = std::move(cell);
    if (editor_ && !isEditable(editor_->row))
        dropEdit();
    changed();
}

void Grid::setValue(std::int32_t row, const std::string& value)
{
    at(at(rows_, row), valueColumn).value = value;
    changed();
}

void Grid::setStyle(CellStyle& mine, const CellStyle& style)
{
    mine = style;
    changed();
}

void Grid::setStandardStyle(const CellStyle& style)
{
    setStyle(standardStyle_, style);
}

void Grid::setColHeaderStyle(const CellStyle& style)
{
    setStyle(colHeaderStyle_, style);
}

void Grid::setRowHeaderStyle(const CellStyle& style)
{
    setStyle(rowHeaderStyle_, style);
}

std::int32_t Grid::columnWidth(std::int32_t column) const
{
    return at(columnWidths_, column);
}

void Grid::setColumnWidth(std::int32_t column, std::int32_t width)
{
    at(columnWidths_, column) = width;
    changed();
}

void Grid::lockDrawing(bool locked)
{
    drawingLocked_ = locked;
    changed();
}

void Grid::changed()
{
    if (!drawingLocked_)
        tellView(Aspect::Items);
}

} // namespace ko
