#pragma once

#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace ko {

/// A line of a script cannot be understood.
class ScriptFault : public std::runtime_error {
public:
    ScriptFault(int line, const std::string& what) : std::runtime_error(what), line_(line) {}

    [[nodiscard]] int line() const { return line_; }

private:
    int line_;
};

/// A command: its first word names it.
struct ScriptLine {
    int number = 0; ///< counts from 1
    std::vector<std::string> words;

    bool operator==(const ScriptLine&) const = default;
};

/// The words of a line: separated by blanks; in double quotes a word may hold blanks, \", \\ and \n. A quote that does
/// not begin a word stands for itself. Fails with a `ScriptFault` of this line number.
std::vector<std::string> splitWords(const std::string& line, int number);

/// The line that `splitWords` takes apart into these words.
std::string joinWords(const std::vector<std::string>& words);

/// Reads a script line by line, as far as it is run, so that a script may come through a pipe.
class ScriptReader {
public:
    /// `input` outlives the reader.
    explicit ScriptReader(std::istream& input) : input_(input) {}

    /// The next command; blank lines and comments are skipped. None at the end.
    std::optional<ScriptLine> next();

    /// The commands up to `end`, which is the last of them. `opener` is the line that begins the block; a block that
    /// does not end is its fault.
    std::vector<ScriptLine> block(int opener);

private:
    std::istream& input_;
    int number_ = 0;
};

} // namespace ko
