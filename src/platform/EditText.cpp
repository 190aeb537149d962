#include "platform/EditText.h"

#include "platform/Utf8.h"

#include <algorithm>

namespace ko {

std::string_view firstLine(std::string_view text)
{
    for (const std::string_view lineBreak : {"\n", "\r", "\u2028", "\u2029"})
        text = text.substr(0, text.find(lineBreak));
    return text;
}

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

std::string EditText::beforeSelection() const
{
    return std::string(utf8Part(text_, 0, selStart_));
}

std::string EditText::afterSelection() const
{
    return std::string(utf8Part(text_, selStart_ + selLength_, std::string::npos));
}

EditText EditText::entered(const std::string& text, std::size_t start, std::size_t length) const
{
    EditText result;
    const std::string line(firstLine(text));
    if (line == text) {
        result.put(text, start, length);
        return result;
    }
    const std::string_view after = utf8Part(text, start, std::string::npos);
    if (line.empty() || (line == beforeSelection() && after == afterSelection()))
        return *this;
    const std::size_t end = utf8Length(line);
    result.put(line + std::string(start > end ? firstLine(after) : ""), end, 0);
    return result;
}

EditText EditText::replaced(const std::string& text) const
{
    const std::string line(firstLine(text));
    if (line.empty() && !text.empty())
        return *this;
    EditText result;
    result.put(beforeSelection() + line + afterSelection(), selStart_ + utf8Length(line), 0);
    return result;
}

} // namespace ko
