#include "platform/Utf8.h"

namespace ko {

namespace {

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::size_t nextCharacter(std::string_view text, std::size_t at)
{
    ++at;
    while (at < text.size() && isContinuation(text[at]))
        ++at;
    return at;
}

std::size_t skip(std::string_view text, std::size_t at, std::size_t characters)
{
    for (; characters > 0 && at < text.size(); --characters)
        at = nextCharacter(text, at);
    return at;
}

} // namespace

std::size_t utf8Length(std::string_view text)
{
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size(); at = nextCharacter(text, at))
        ++length;
    return length;
}

std::string_view utf8Part(std::string_view text, std::size_t start, std::size_t length)
{
    const std::size_t first = skip(text, 0, start);
    return text.substr(first, skip(text, first, length) - first);
}

} // namespace ko
