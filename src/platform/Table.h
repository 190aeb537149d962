#pragma once

#include "platform/Control.h"

#include <vector>

namespace ko {

/// A read-only table: cells with short texts, with column and row headers. The user can move from cell to cell.
class Table : public Control {
public:
    enum class Emphasis { none, strong, weak };

    struct Cell {
        std::string text;
        std::string meaning; ///< the text as a full sentence, for a cell read out of context
        Emphasis emphasis = Emphasis::none;

        bool operator==(const Cell&) const = default;
    };
    struct Row {
        std::string header;
        std::vector<Cell> cells; ///< as many as there are columns

        bool operator==(const Row&) const = default;
    };

    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "Table"; }
    [[nodiscard]] bool takesFocus() const override { return true; }

    [[nodiscard]] const std::vector<std::string>& columns() const { return columns_; }
    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    void setContent(std::vector<std::string> columns, std::vector<Row> rows);

private:
    std::vector<std::string> columns_;
    std::vector<Row> rows_;
};

} // namespace ko
