#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ko::fuzz {

/// A property that must hold for every input was violated.
class Violation : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Throws a `Violation` with `what` and `text` unless `holds`.
void require(bool holds, const std::string& what, std::string_view text);
/// Requires `refusal` to be one line: `file`, the number of a line, a colon and what is wrong.
void requireLine(std::string_view refusal, std::string_view file);

/// A reader of external input. A target accepts any bytes; a fault of the reader shows as a `Violation`, another
/// exception or a crash.
struct Target {
    const char* name; ///< also of its folder of inputs
    void (*run)(std::string_view input);
};

/// A line of text, read as a number in several locales and as each type of number that a box accepts.
extern const Target numbers;
/// A line of text, read as a date in several locales, including one that the input's other lines define.
extern const Target dates;
/// A string file, with which the page and its dialogs are built.
extern const Target strings;
/// A set-up file, saved, read again and shown on the page.
extern const Target setups;
/// A script, optionally followed by a line `----` and the set-up file that it runs on.
extern const Target scripts;

std::span<const Target* const> allTargets();

} // namespace ko::fuzz
