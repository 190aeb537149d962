#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ko {

/// The number of characters of a UTF-8 text. A byte that starts no valid sequence counts as one character.
std::size_t utf8Length(std::string_view text);

/// Up to `length` characters starting at character `start`.
std::string_view utf8Part(std::string_view text, std::size_t start, std::size_t length);

/// The first whole characters of the text, at most `bytes` bytes.
std::string shortened(std::string text, std::size_t bytes);

/// The text with U+FFFD in place of the directional formatting characters, U+202A to U+202E and U+2066 to U+2069: in a
/// name they could reverse the numbers displayed next to it.
std::string withoutDirections(std::string text);

} // namespace ko
