#pragma once

#include "platform/Control.h"
#include "platform/EditText.h"

#include <array>
#include <optional>
#include <vector>

namespace ko {

/// Colours of the system palette.
enum class SystemColor { windowBackground = 5, inactiveBorder = 11, buttonFace = 15 };

/// Appearance and editing of a grid cell.
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

/// An edited cell whose edit is being checked or ends. A handler refuses by setting `Value` to false; it also clears
/// `staysOpen` when there is nothing for the user to correct.
struct CellEvent {
    std::int32_t row = 0, column = 0;
    std::string text;
    bool Value = true;
    bool staysOpen = true;
};

/// The state that a check cell's text means: "True" or "False" in any case, 0, 1 or -1; none for any other text.
std::optional<bool> checkState(std::string_view text);

/// A grid of names and values: column 0 holds each row's name, column 1 its value, column 2 its id, which is not shown.
/// Rows are numbered from 1; row 0 is the header.
///
/// The user edits value cells, one at a time, in an editor that opens with the cell's text. An edit ends with
/// `OnValidateCell` and then `cellEdited`; when either refuses, the editor stays open with the user's text and keeps
/// the focus. A refused edit is cancelled, and the cell keeps its value, when there is nothing to correct: in a list or
/// check cell, which accepts only its choices, or when the handler clears `staysOpen`. An edit that changed nothing
/// ends without events. The grid's own `validate` handler ends the edit, its `lostFocus` handler drops it.
class Grid : public Control, public TextEditing {
public:
    enum Column : std::int32_t { nameColumn, valueColumn, idColumn };

    struct Cell {
        std::string value;
        CellStyle style;

        bool operator==(const Cell&) const = default;
    };
    using Row = std::array<Cell, 3>;

    Grid(Form& form, std::string name, Control* container = nullptr);

    [[nodiscard]] std::string_view typeName() const override { return "Gridocx"; }
    [[nodiscard]] bool takesFocus() const override { return true; }
    /// The open editor's text; null while none is open.
    [[nodiscard]] TextEditing* textEditing() override { return editor_ ? this : nullptr; }

    [[nodiscard]] std::int32_t rowCount() const { return static_cast<std::int32_t>(rows_.size()) - 1; }
    /// Drops an open edit, because the rows are being replaced.
    void setRowCount(std::int32_t count);
    /// Failure 9 outside the grid.
    [[nodiscard]] const Cell& cell(std::int32_t row, std::int32_t column) const;
    void setCell(std::int32_t row, std::int32_t column, Cell cell);
    void setValue(std::int32_t row, const std::string& value);

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
    /// Inner width in twips, including a vertical scroll bar, and the number of rows visible at once; set by the view.
    [[nodiscard]] std::int32_t innerWidth() const { return innerWidth_; }
    [[nodiscard]] std::int32_t visibleRows() const { return visibleRows_; }
    void setInnerWidth(std::int32_t width) { innerWidth_ = width; }
    void setVisibleRows(std::int32_t rows) { visibleRows_ = rows; }

    /// While drawing is locked the view is not notified; unlocking notifies it once.
    void lockDrawing(bool locked);

    /// Whether the user can edit the value cell of this row.
    [[nodiscard]] bool isEditable(std::int32_t row) const;
    /// The row whose value cell is being edited; 0 for none.
    [[nodiscard]] std::int32_t editedRow() const { return editor_ ? editor_->row : 0; }
    /// The open editor's text and selection; the view is notified of changes as for a text box.
    [[nodiscard]] const EditText& editor() const;
    [[nodiscard]] std::size_t selLength() const override { return editor().selLength(); }
    [[nodiscard]] std::string selText() const override { return editor().selText(); }
    void setSelText(const std::string& text) override;
    /// Marks the open editor's text as not acceptable; affects only the appearance. An editor opens without the mark.
    [[nodiscard]] bool editorMarked() const { return editor_ && editor_->marked; }
    void setEditorMarked(bool marked);
    /// Ends an open edit; returns false when it stays open.
    bool endEdit();
    /// Returns whether an open edit may end; closes an edit that is cancelled.
    bool checkEdit();
    /// Closes an open editor; the cell keeps its value.
    void dropEdit();

    /// The user opens the value cell of a row with its whole text selected. An edit open in another row is ended first,
    /// which may be refused.
    Outcome userOpenedCell(std::int32_t row);
    /// The user's input has changed the open editor to this text and selection.
    Outcome userTypedInCell(const std::string& text, std::size_t start, std::size_t length);
    Outcome userSelectedInCell(std::size_t start, std::size_t length);
    /// The user sets a value cell (a text, a list entry or a check state) and ends the edit. Inert when there is no
    /// such cell, entry or state.
    Outcome userEditedCell(std::int32_t row, const std::string& given);
    /// The user ends or cancels an open edit. Inert when none is open.
    Outcome userEndedEdit();
    Outcome userDroppedEdit();

    /// Raised before an edit ends; may refuse.
    std::function<void(CellEvent&)> OnValidateCell;
    /// Raised when an edit ends; may refuse.
    std::function<void(CellEvent&)> cellEdited;
    /// An editor was opened or closed.
    std::function<void()> editorChanged;
    /// The user has opened a cell to type in it.
    std::function<void()> cellOpened;
    /// The text in the open editor has changed.
    std::function<void()> editorTyped;

private:
    struct Editor {
        std::int32_t row = 0;
        EditText text;
        bool marked = false;
    };
    enum class Ending : std::uint8_t { Accepted, GivenUp, StaysOpen };

    void changed();
    Outcome openCell(std::int32_t row);
    void setStyle(CellStyle& mine, const CellStyle& style);
    [[nodiscard]] bool takes(std::int32_t row, const std::string& text) const;
    [[nodiscard]] Ending judged(const Editor& edit, bool apply) const;
    Ending end(bool apply);
    void put(const EditText& text);

    std::vector<Row> rows_{1};
    CellStyle standardStyle_, colHeaderStyle_, rowHeaderStyle_;
    std::array<std::int32_t, 3> columnWidths_{};
    std::int32_t innerWidth_ = 4800;
    std::int32_t visibleRows_ = 8;
    bool drawingLocked_ = false;
    std::optional<Editor> editor_;
    bool ending_ = false;
};

} // namespace ko
