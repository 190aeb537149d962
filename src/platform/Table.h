#pragma once

#include "platform/Control.h"

#include <vector>

namespace ko {

/// A table that is only read: cells of a short text each, under the headers of their columns and behind those of their
/// rows. The user goes from cell to cell.
class Table : public Control {
public:
    enum class Emphasis { none, strong, weak };

    struct Cell {
        std::string text;
        std::string meaning; ///< the text as a whole sentence, for whoever meets the cell alone
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
