#include "platform/Table.h"

#include <utility>

namespace ko {

void Table::setContent(std::vector<std::string> columns, std::vector<Row> rows)
{
    if (columns == columns_ && rows == rows_)
        return;
    columns_ = std::move(columns);
    rows_ = std::move(rows);
    tellView(Aspect::Items);
}

void Table::show(std::size_t row, std::size_t column)
{
    shownRow_ = row;
    shownColumn_ = column;
    tellView(Aspect::Selection);
}

} // namespace ko
