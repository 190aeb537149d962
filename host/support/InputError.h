#pragma once

#include <stdexcept>
#include <string>

namespace ko {

/// Returns the text with line breaks and other control characters replaced by blanks; see also `withoutDirections`.
std::string oneLine(std::string text);

/// A file cannot be read, written or parsed. The message is always a single line: the file, the line number if there is
/// one, and the reason.
class InputError : public std::runtime_error {
public:
    explicit InputError(const std::string& what);
    InputError(const std::string& file, int line, const std::string& what);
};

} // namespace ko
