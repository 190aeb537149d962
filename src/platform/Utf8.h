#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ko {

/// How many characters a UTF-8 text has. A byte that begins no valid sequence counts as one character.
std::size_t utf8Length(std::string_view text);

/// `length` characters from character `start` on, as far as the text has them.
std::string_view utf8Part(std::string_view text, std::size_t start, std::size_t length);

/// The text with U+FFFD in place of the characters that turn the reading direction of what follows, U+202A to U+202E
/// and U+2066 to U+2069: a name that has some would reverse the numbers beside it.
std::string withoutDirections(std::string text);

} // namespace ko
