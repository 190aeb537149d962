#include "host/setup/TextEdits.h"

#include <algorithm>
#include <utility>

namespace ko {

namespace {

std::size_t lineBegin(const std::string& text, std::size_t at)
{
    const std::size_t lineBreak = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
    return lineBreak == std::string::npos ? 0 : lineBreak + 1;
}

bool isComment(const std::string& text, std::size_t at, char second)
{
    return at + 1 < text.size() && text[at] == '/' && text[at + 1] == second;
}

/// Returns the end of the comment that begins at `at`, without its line break; `at` if there is none.
std::size_t endOfComment(const std::string& text, std::size_t at)
{
    if (isComment(text, at, '/'))
        return std::min(text.find('\n', at), text.size());
    if (!isComment(text, at, '*'))
        return at;
    const std::size_t end = text.find("*/", at + 2);
    return end == std::string::npos ? text.size() : end + 2;
}

std::size_t skip(const std::string& text, std::size_t at, const char* skipped)
{
    while (at < text.size()) {
        std::size_t next = std::min(text.find_first_not_of(skipped, at), text.size());
        next = endOfComment(text, next);
        if (next == at)
            break;
        at = next;
    }
    return at;
}

} // namespace

std::size_t afterBlanks(const std::string& text, std::size_t at)
{
    return skip(text, at, " \t\r\n");
}

std::size_t commaAfter(const std::string& text, std::size_t at)
{
    const std::size_t next = afterBlanks(text, at);
    return next < text.size() && text[next] == ',' ? next : std::string::npos;
}

std::size_t endOfLine(const std::string& text, std::size_t at)
{
    std::size_t end = skip(text, at, " \t\r");
    if (end < text.size() && text[end] != '\n')
        return at;
    // A comment may have passed lines, and a line break of two bytes counts as a whole.
    if (text.find('\n', at) < end)
        return at;
    return end > at && text[end - 1] == '\r' ? end - 1 : end;
}

bool beginsLine(const std::string& text, std::size_t at)
{
    return text.find_first_not_of(" \t", lineBegin(text, at)) >= at;
}

std::string indentAt(const std::string& text, std::size_t at)
{
    const std::size_t begin = lineBegin(text, at);
    return text.substr(begin, std::min(text.find_first_not_of(" \t", begin), text.size()) - begin);
}

std::string lineBreakOf(const std::string& text)
{
    const std::size_t first = text.find('\n');
    return first != std::string::npos && first > 0 && text[first - 1] == '\r' ? "\r\n" : "\n";
}

std::string indentUnitOf(const std::string& text)
{
    for (std::size_t line = text.find('\n'); line != std::string::npos; line = text.find('\n', line + 1)) {
        const std::string indent = indentAt(text, line + 1);
        if (!indent.empty())
            return indent;
    }
    return "  ";
}

void TextEdits::removeItem(std::size_t begin, std::size_t end)
{
    const std::size_t comma = commaAfter(text_, end);
    const std::size_t rest = comma == std::string::npos ? end : comma + 1;
    const std::size_t lineEnd = endOfLine(text_, rest);
    const bool isLast = lineEnd < text_.size() && (text_[lineEnd] == '\n' || text_[lineEnd] == '\r');
    if (beginsLine(text_, begin) && isLast)
        return replace(lineBegin(text_, begin), text_.find('\n', lineEnd) + 1, {});
    replace(begin, std::min(text_.find_first_not_of(" \t", rest), text_.size()), {});
}

std::string TextEdits::result() const
{
    std::vector<Edit> ordered = edits_;
    std::stable_sort(ordered.begin(), ordered.end(), [](const Edit& a, const Edit& b) {
        return std::pair(a.begin, a.end > a.begin) < std::pair(b.begin, b.end > b.begin);
    });
    std::string text;
    std::size_t done = 0;
    for (const Edit& edit : ordered) {
        if (edit.begin > done)
            text.append(text_, done, edit.begin - done);
        text += edit.with;
        done = std::max(done, edit.end);
    }
    return text.append(text_, done);
}

} // namespace ko
