#pragma once

#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace ko {

/// A line of a script is invalid.
class ScriptFault : public std::runtime_error {
public:
    ScriptFault(int line, const std::string& what) : std::runtime_error(what), line_(line) {}

    [[nodiscard]] int line() const { return line_; }

private:
    int line_;
};

/// A command; the first word is its name.
struct ScriptLine {
    int number = 0; ///< counts from 1
    std::vector<std::string> words;

    bool operator==(const ScriptLine&) const = default;
};

/// Splits a line at blanks. A word in double quotes may contain blanks, \", \\ and \n; a quote inside a word is an
/// ordinary character. Throws a `ScriptFault` with this line number.
std::vector<std::string> splitWords(const std::string& line, int number);

/// Returns a line that `splitWords` splits into these words.
std::string joinWords(const std::vector<std::string>& words);

/// Reads a script line by line, only as far as it is run, so that it can come from a pipe.
class ScriptReader {
public:
    /// `input` outlives the reader.
    explicit ScriptReader(std::istream& input) : input_(input) {}

    /// Returns the next command, or none at the end. Skips blank lines and comments.
    std::optional<ScriptLine> next();

    /// Returns the commands up to and including `end`. `opener` is the number of the line that begins the block, which
    /// the `ScriptFault` for a missing `end` carries.
    std::vector<ScriptLine> block(int opener);

private:
    std::istream& input_;
    int number_ = 0;
};

} // namespace ko
