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

std::string shortened(std::string text, std::size_t bytes)
{
    if (text.size() <= bytes)
        return text;
    while (bytes > 0 && isContinuation(text[bytes]))
        --bytes;
    text.resize(bytes);
    return text;
}

std::string withoutDirections(std::string text)
{
    const auto turns = [](std::string_view character) {
        return (character >= "\u202A" && character <= "\u202E") || (character >= "\u2066" && character <= "\u2069");
    };
    // All of these characters and the replacement are three bytes long.
    constexpr std::size_t length = 3;
    for (std::size_t at = text.find('\xE2'); at != std::string::npos; at = text.find('\xE2', at + 1))
        if (turns(std::string_view(text).substr(at, length)))
            text.replace(at, length, "\uFFFD");
    return text;
}

} // namespace ko
