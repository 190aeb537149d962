#include "platform/TextBox.h"

#include "platform/Utf8.h"

#include <algorithm>

namespace ko {

void TextBox::setText(const std::string& text)
{
    if (text_ != text)
        put(text, 0, 0);
}

void TextBox::put(const std::string& text, std::size_t start, std::size_t length)
{
    const bool differs = text_ != text;
    text_ = text;
    const std::size_t end = utf8Length(text_);
    selStart_ = std::min(start, end);
    selLength_ = std::min(length, end - selStart_);
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
    const std::size_t end = utf8Length(text_);
    start = std::min(start, end);
    length = std::min(length, end - start);
    if (selStart_ == start && selLength_ == length)
        return;
    selStart_ = start;
    selLength_ = length;
    tellView(Aspect::Selection);
}

std::string TextBox::selText() const
{
    return std::string(utf8Part(text_, selStart_, selLength_));
}

void TextBox::setSelText(const std::string& text)
{
    const std::string before(utf8Part(text_, 0, selStart_));
    const std::string after(utf8Part(text_, selStart_ + selLength_, std::string::npos));
    put(before + text + after, selStart_ + utf8Length(text), 0);
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
