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

    /// Moves the user to a cell. The position is not followed when the user leaves it.
    void show(std::size_t row, std::size_t column);
    [[nodiscard]] std::size_t shownRow() const { return shownRow_; }
    [[nodiscard]] std::size_t shownColumn() const { return shownColumn_; }

private:
    std::vector<std::string> columns_;
    std::vector<Row> rows_;
    std::size_t shownRow_ = 0, shownColumn_ = 0;
};

} // namespace ko
