#include "host/InputError.h"

#include <algorithm>

namespace ko {

namespace {

constexpr std::size_t longest = 500;

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string oneLine(std::string text)
{
    if (text.size() > longest) {
        std::size_t end = longest;
        while (isContinuation(text[end]))
            --end;
        text.resize(end);
    }
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return text;
}

} // namespace

InputError::InputError(const std::string& what) : std::runtime_error(oneLine(what)) {}

InputError::InputError(const std::string& file, int line, const std::string& what)
    : InputError(file + ":" + std::to_string(line) + ": " + what)
{
}

} // namespace ko
