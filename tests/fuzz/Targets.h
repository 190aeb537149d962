#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ko::fuzz {

/// Something did not hold that must hold for every input.
class Violation : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Fails with a `Violation` that says what did not hold and shows the text in which it did not.
void require(bool holds, const std::string& what, std::string_view text);

/// What reads input from outside the program. Every target takes any bytes at all; one that the reader mishandles is
/// a `Violation`, any other exception or a crash.
struct Target {
    const char* name; ///< of its folder of inputs, too
    void (*run)(std::string_view input);
};

/// A line of text: read as a number in several locales and as a number of each type that a box takes.
extern const Target numbers;
/// A line of text: read as a date in several locales, and in one that is made of the input's further lines.
extern const Target dates;
/// A string file, and the page and its dialogs in that language.
extern const Target strings;
/// A set-up file, saved, read again and shown on the page.
extern const Target setups;
/// A script; behind a line `----` perhaps the set-up file that it is played on.
extern const Target scripts;

std::span<const Target* const> allTargets();

} // namespace ko::fuzz
