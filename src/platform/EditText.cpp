#include "platform/EditText.h"

#include "platform/Utf8.h"

#include <algorithm>

namespace ko {

std::string EditText::selText() const
{
    return std::string(utf8Part(text_, selStart_, selLength_));
}

bool EditText::select(std::size_t start, std::size_t length)
{
    const std::size_t end = utf8Length(text_);
    start = std::min(start, end);
    length = std::min(length, end - start);
    if (selStart_ == start && selLength_ == length)
        return false;
    selStart_ = start;
    selLength_ = length;
    return true;
}

bool EditText::put(const std::string& text, std::size_t start, std::size_t length)
{
    const bool differs = text_ != text;
    text_ = text;
    select(start, length);
    return differs;
}

EditText EditText::replaced(const std::string& text) const
{
    const std::string before(utf8Part(text_, 0, selStart_));
    const std::string after(utf8Part(text_, selStart_ + selLength_, std::string::npos));
    EditText result;
    result.put(before + text + after, selStart_ + utf8Length(text), 0);
    return result;
}

} // namespace ko
