#pragma once

#include "platform/Control.h"

#include <array>
#include <vector>

namespace ko {

/// Colours that the system's palette gives.
enum class SystemColor { windowBackground = 5, inactiveBorder = 11, buttonFace = 15 };

/// How a grid cell looks and is edited.
struct CellStyle {
    enum class Control { edit, check, list };
    enum class Alignment { left = 0, center = 1, right = 2 };

    Font font;
    bool enabled = true;
    SystemColor interior = SystemColor::windowBackground;
    bool wrapText = true;
    Control control = Control::edit;
    Alignment alignment = Alignment::left;
    bool readOnly = false;
    int format = 0; ///< number format of the cell's text; 3 is a number
    std::vector<std::string> choices;

    bool operator==(const CellStyle&) const = default;
};

/// A grid of names and values: column 0 holds each row's name, column 1 its value, column 2 its id, which is not
/// shown. Rows count from 1, row 0 is the header.
class Grid : public Control {
public:
    struct Cell {
        std::string value;
        CellStyle style;

        bool operator==(const Cell&) const = default;
    };
    using Row = std::array<Cell, 3>;

    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "Gridocx"; }
    [[nodiscard]] bool takesFocus() const override { return true; }

    [[nodiscard]] std::int32_t rowCount() const { return static_cast<std::int32_t>(rows_.size()) - 1; }
    void setRowCount(std::int32_t count);
    /// Failure 9 outside the grid.
    [[nodiscard]] const Cell& cell(std::int32_t row, std::int32_t column) const;
    void setCell(std::int32_t row, std::int32_t column, Cell cell);

    /// The style of the cells, of the header row and of the name column.
    [[nodiscard]] const CellStyle& standardStyle() const { return standardStyle_; }
    void setStandardStyle(const CellStyle& style);
    [[nodiscard]] const CellStyle& colHeaderStyle() const { return colHeaderStyle_; }
    void setColHeaderStyle(const CellStyle& style);
    [[nodiscard]] const CellStyle& rowHeaderStyle() const { return rowHeaderStyle_; }
    void setRowHeaderStyle(const CellStyle& style);

    /// Twips. A hidden column is 0 wide.
    [[nodiscard]] std::int32_t columnWidth(std::int32_t column) const;
    void setColumnWidth(std::int32_t column, std::int32_t width);
    /// Inner width in twips, told by the view.
    [[nodiscard]] std::int32_t innerWidth() const { return innerWidth_; }
    void setInnerWidth(std::int32_t width) { innerWidth_ = width; }

    /// While drawing is locked the view hears nothing; unlocking tells it once.
    void lockDrawing(bool locked);

private:
    void changed();
    void setStyle(CellStyle& mine, const CellStyle& style);

    std::vector<Row> rows_{1};
    CellStyle standardStyle_, colHeaderStyle_, rowHeaderStyle_;
    std::array<std::int32_t, 3> columnWidths_{};
    std::int32_t innerWidth_ = 4800;
    bool drawingLocked_ = false;
};

} // namespace ko
