#include "platform/TextBox.h"

#include "platform/Form.h"
#include "platform/Utf8.h"

namespace ko {

void TextBox::setText(const std::string& text)
{
    if (edit_.text() != text)
        put(text, 0, 0);
}

void TextBox::put(const std::string& text, std::size_t start, std::size_t length)
{
    const bool differs = edit_.put(text, start, length);
    tellView(differs ? Aspect::Text : Aspect::Selection);
    if (differs)
        raise(change);
}

void TextBox::setLocked(bool locked)
{
    if (locked_ == locked)
        return;
    locked_ = locked;
    tellView(Aspect::Usability);
}

void TextBox::setMarked(bool marked)
{
    if (marked_ == marked)
        return;
    marked_ = marked;
    tellView(Aspect::Mark);
}

void TextBox::setEscapeText(const std::string& text)
{
    if (escapeText_ == text)
        return;
    escapeText_ = text;
    tellView(Aspect::Hint);
}

void TextBox::select(std::size_t start, std::size_t length)
{
    if (edit_.select(start, length))
        tellView(Aspect::Selection);
}

void TextBox::setSelText(const std::string& text)
{
    const EditText result = edit_.replaced(text);
    put(result.text(), result.selStart(), result.selLength());
}

Outcome TextBox::userTyped(const std::string& text)
{
    form().tellUserActs("type", text);
    if (!isUsable() || locked_)
        return Outcome::Inert;
    setSelText(text);
    return Outcome::Done;
}

/// A single character typed over the selection is recorded as "type", which does not depend on the rest of the text.
void TextBox::recordReplacement(const EditText& edit) const
{
    const std::string& text = edit.text();
    const std::size_t start = edit.selStart();
    const std::string typed(start > 0 ? utf8Part(text, start - 1, 1) : std::string_view{});
    const EditText result = edit_.replaced(typed);
    if (hasFocus() && !typed.empty() && edit.selLength() == 0 && result.selStart() == start && result.text() == text)
        form().tellUserActs("type", typed);
    else if (start == utf8Length(text))
        form().tellUserActs("text", name(), text);
    else
        form().tellUserActs("text", name(), text, start, edit.selLength());
}

Outcome TextBox::userReplaced(const std::string& text, std::size_t start, std::size_t length)
{
    const EditText edit = edit_.entered(text, start, length);
    if (form().userActs)
        recordReplacement(edit);
    if (!isUsable() || locked_)
        return Outcome::Inert;
    put(edit.text(), edit.selStart(), edit.selLength());
    return Outcome::Done;
}

Outcome TextBox::userDropsText()
{
    return locked_ ? Outcome::Inert : enter();
}

Outcome TextBox::userSelected(std::size_t start, std::size_t length)
{
    if (!isUsable())
        return Outcome::Inert;
    // Views also report selections that the box itself has set.
    if (start != selStart() || length != selLength())
        form().tellUserActs("select", name(), start, length);
    select(start, length);
    return Outcome::Done;
}

Outcome TextBox::userUndid()
{
    form().tellUserActs("key", "Escape");
    if (!isUsable() || locked_)
        return Outcome::Inert;
    raise(undo);
    return Outcome::Done;
}

Outcome TextBox::userDoubleClicked()
{
    const Outcome entered = enter();
    if (entered != Outcome::Done)
        return entered;
    form().tellUserActs("double-click", name());
    raise(doubleClick);
    return entered;
}

} // namespace ko
