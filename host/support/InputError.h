#pragma once

#include <stdexcept>
#include <string>

namespace ko {

/// Returns the text with line breaks and other control characters replaced by blanks; see also `withoutDirections`.
std::string oneLine(std::string text);

/// The same of at most `bytes` bytes, for example for a cell of a table; a text that is cut ends with "…".
std::string shortLine(const std::string& text, std::size_t bytes = 500);

/// A file cannot be read, written or parsed. The message is always a single line: the file, the line number if there is
/// one, and the reason.
class InputError : public std::runtime_error {
public:
    explicit InputError(const std::string& what);
    InputError(const std::string& file, int line, const std::string& what);
};

} // namespace ko
