#include "platform/TextBox.h"

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

void TextBox::select(std::size_t start, std::size_t length)
{
    if (edit_.select(start, length))
        tellView(Aspect::Selection);
}

void TextBox::setSelText(const std::string& text)
{
    const EditText result = edit_.replaced(text);
    put(result.text(), result.selStart(), 0);
}

Outcome TextBox::userTyped(const std::string& text)
{
    if (!isUsable() || locked_)
        return Outcome::Inert;
    setSelText(text);
    return Outcome::Done;
}

Outcome TextBox::userReplaced(const std::string& text, std::size_t start, std::size_t length)
{
    if (!isUsable() || locked_)
        return Outcome::Inert;
    put(text, start, length);
    return Outcome::Done;
}

Outcome TextBox::userSelected(std::size_t start, std::size_t length)
{
    if (!isUsable())
        return Outcome::Inert;
    select(start, length);
    return Outcome::Done;
}

Outcome TextBox::userUndid()
{
    if (!isUsable() || locked_)
        return Outcome::Inert;
    raise(undo);
    return Outcome::Done;
}

Outcome TextBox::userDoubleClicked()
{
    const Outcome entered = enter();
    if (entered == Outcome::Done)
        raise(doubleClick);
    return entered;
}

} // namespace ko
