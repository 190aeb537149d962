#include "host/support/InputError.h"

#include "platform/Utf8.h"

#include <algorithm>

namespace ko {

namespace {

constexpr std::size_t longest = 500; // bytes

} // namespace

std::string oneLine(std::string text)
{
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; };
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return withoutDirections(std::move(text));
}

std::string shortLine(const std::string& text, std::size_t bytes)
{
    return oneLine(shortened(text, bytes)) + (text.size() > bytes ? "\u2026" : "");
}

InputError::InputError(const std::string& what) : std::runtime_error(oneLine(shortened(what, longest))) {}

InputError::InputError(const std::string& file, int line, const std::string& what)
    : InputError(file + ":" + std::to_string(line) + ": " + what)
{
}

} // namespace ko
