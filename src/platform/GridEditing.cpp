#include "platform/Failure.h"
#include "platform/Form.h"
#include "platform/Grid.h"
#include "platform/Scoped.h"
#include "platform/Utf8.h"

#include <algorithm>

namespace ko {

namespace {

bool sameLetters(std::string_view text, std::string_view lowerCase)
{
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; });
}

} // namespace

std::optional<bool> checkState(std::string_view text)
{
    if (sameLetters(text, "true") || text == "1" || text == "-1")
        return true;
    if (sameLetters(text, "false") || text == "0")
        return false;
    return std::nullopt;
}

bool Grid::isEditable(std::int32_t row) const
{
    if (row < 1 || row > rowCount() || !isUsable())
        return false;
    const CellStyle& style = cell(row, valueColumn).style;
    return style.enabled && !style.readOnly;
}

const EditText& Grid::editor() const
{
    if (!editor_)
        fail(failure::invalidCall);
    return editor_->text;
}

/// Whether the cell of the row can have this value at all.
bool Grid::takes(std::int32_t row, const std::string& text) const
{
    const CellStyle& style = cell(row, valueColumn).style;
    switch (style.control) {
    case CellStyle::Control::check: return checkState(text).has_value();
    case CellStyle::Control::list:
        return std::find(style.choices.begin(), style.choices.end(), text) != style.choices.end();
    case CellStyle::Control::edit: break;
    }
    return true;
}

void Grid::put(const EditText& text)
{
    const bool differs = editor().text() != text.text();
    editor_->text = text;
    editor_->modified = editor_->modified || differs;
    tellView(differs ? Aspect::Text : Aspect::Selection);
}

void Grid::setSelText(const std::string& text)
{
    put(editor().replaced(text));
}

bool Grid::accepts(const std::function<void(CellEvent&)>& event, const Editor& edit) const
{
    CellEvent leaving{edit.row, valueColumn, edit.text.text()};
    if (event)
        event(leaving);
    return leaving.Value;
}

bool Grid::endEdit()
{
    if (!editor_)
        return true;
    // A message box that a handler shows may make the toolkit end the edit again.
    if (ending_)
        return false;
    const Scoped guard(ending_, true);
    const Editor edit = *editor_;
    const bool accepted = !edit.modified || (accepts(OnValidateCell, edit) && accepts(cellEdited, edit));
    // What was picked from a list or checked leaves nothing to correct.
    if (accepted || (editor_ && cell(edit.row, valueColumn).style.control != CellStyle::Control::edit))
        dropEdit();
    return accepted;
}

void Grid::dropEdit()
{
    if (!editor_)
        return;
    editor_.reset();
    tellView(Aspect::Text);
    raise(editorChanged);
}

Outcome Grid::userOpenedCell(std::int32_t row)
{
    if (!isEditable(row))
        return Outcome::Inert;
    const Outcome entered = enter();
    if (entered != Outcome::Done || editedRow() == row)
        return entered;
    form().tellUserActs("open-cell", row);
    return openCell(row);
}

Outcome Grid::openCell(std::int32_t row)
{
    if (editedRow() == row)
        return Outcome::Done;
    if (!endEdit())
        return Outcome::Refused;
    // Leaving the other control or cell may have changed the rows.
    if (!isEditable(row))
        return Outcome::Inert;
    Editor opened{row, {}, false};
    const std::string& value = cell(row, valueColumn).value;
    opened.text.put(value, 0, utf8Length(value));
    editor_ = opened;
    tellView(Aspect::Text);
    raise(editorChanged);
    return Outcome::Done;
}

Outcome Grid::userTypedInCell(const std::string& text, std::size_t start, std::size_t length)
{
    if (!editor_ || !isUsable())
        return Outcome::Inert;
    form().tellUserActs("text", name(), text, start, length);
    EditText typed;
    typed.put(text, start, length);
    put(typed);
    return Outcome::Done;
}

Outcome Grid::userSelectedInCell(std::size_t start, std::size_t length)
{
    if (!editor_ || !isUsable())
        return Outcome::Inert;
    if (start != editor_->text.selStart() || length != editor_->text.selLength())
        form().tellUserActs("select", name(), start, length);
    if (editor_->text.select(start, length))
        tellView(Aspect::Selection);
    return Outcome::Done;
}

Outcome Grid::userEditedCell(std::int32_t row, const std::string& text)
{
    if (!isEditable(row) || !takes(row, text))
        return Outcome::Inert;
    const Outcome entered = enter();
    if (entered != Outcome::Done)
        return entered;
    form().tellUserActs("cell", row, text);
    const Outcome opened = openCell(row);
    if (opened != Outcome::Done)
        return opened;
    EditText typed;
    typed.put(text, utf8Length(text), 0);
    put(typed);
    editor_->modified = true;
    return endEdit() ? Outcome::Done : Outcome::Refused;
}

Outcome Grid::userEndedEdit()
{
    if (!editor_)
        return Outcome::Inert;
    form().tellUserActs("end-cell");
    return endEdit() ? Outcome::Done : Outcome::Refused;
}

Outcome Grid::userDroppedEdit()
{
    if (!editor_)
        return Outcome::Inert;
    form().tellUserActs("drop-cell");
    dropEdit();
    return Outcome::Done;
}

} // namespace ko
