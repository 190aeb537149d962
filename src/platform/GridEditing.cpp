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

/// Whether the row's value cell accepts this value.
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
    tellView(differs ? Aspect::Text : Aspect::Selection);
    if (differs)
        raise(editorTyped);
}

void Grid::setEditorMarked(bool marked)
{
    if (!editor_ || editor_->marked == marked)
        return;
    editor_->marked = marked;
    tellView(Aspect::Mark);
}

void Grid::setSelText(const std::string& text)
{
    put(editor().replaced(text));
}

Grid::Ending Grid::judged(const Editor& edit, bool apply) const
{
    const std::string& text = edit.text.text();
    if (text == cell(edit.row, valueColumn).value)
        return Ending::Accepted;
    const bool isPicked = cell(edit.row, valueColumn).style.control != CellStyle::Control::edit;
    if (!takes(edit.row, text))
        return Ending::GivenUp;
    for (const auto* event : {&OnValidateCell, apply ? &cellEdited : nullptr}) {
        CellEvent leaving{edit.row, valueColumn, text};
        if (event && *event)
            (*event)(leaving);
        if (!leaving.Value)
            return leaving.staysOpen && !isPicked ? Ending::StaysOpen : Ending::GivenUp;
    }
    return Ending::Accepted;
}

Grid::Ending Grid::end(bool apply)
{
    if (!editor_)
        return Ending::Accepted;
    // A message box that a handler shows may cause the toolkit to end the edit again.
    if (ending_)
        return Ending::StaysOpen;
    const Scoped guard(ending_, true);
    const Editor edit = *editor_;
    const Ending ending = judged(edit, apply);
    if (ending == Ending::GivenUp || (apply && ending == Ending::Accepted))
        dropEdit();
    return ending;
}

bool Grid::endEdit()
{
    return end(true) != Ending::StaysOpen;
}

bool Grid::checkEdit()
{
    return end(false) != Ending::StaysOpen;
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
    const Outcome opened = openCell(row);
    if (opened == Outcome::Done)
        raise(cellOpened);
    return opened;
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
    const EditText typed = editor_->text.entered(text, start, length);
    form().tellUserActs("text", name(), typed.text(), typed.selStart(), typed.selLength());
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

Outcome Grid::userEditedCell(std::int32_t row, const std::string& given)
{
    if (!isEditable(row))
        return Outcome::Inert;
    const Cell& edited = cell(row, valueColumn);
    const bool isList = edited.style.control == CellStyle::Control::list;
    EditText old;
    old.put(edited.value, 0, utf8Length(edited.value));
    const std::string text = isList ? given : old.replaced(given).text();
    if (!takes(row, text))
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
    return end(true) == Ending::Accepted ? Outcome::Done : Outcome::Refused;
}

Outcome Grid::userEndedEdit()
{
    if (!editor_)
        return Outcome::Inert;
    form().tellUserActs("end-cell");
    return end(true) == Ending::Accepted ? Outcome::Done : Outcome::Refused;
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
