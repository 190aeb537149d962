#pragma once

#include <stdexcept>
#include <string>

namespace ko {

/// The text in one line: blanks in place of line breaks and other control characters; see also `withoutDirections`.
std::string oneLine(std::string text);

/// A file that cannot be read or understood. The message is one line, whatever stands in the file: the file, the line
/// (where there is one) and what is wrong.
class InputError : public std::runtime_error {
public:
    explicit InputError(const std::string& what);
    InputError(const std::string& file, int line, const std::string& what);
};

} // namespace ko
