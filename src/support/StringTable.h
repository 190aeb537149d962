#pragma once

#include <map>
#include <string>
#include <string_view>

namespace ko {

/// The content of the built-in English string file.
std::string_view englishStrings();

/// The component's texts by number.
///
/// A string file has one entry per line: its number, a blank, and the text between the first and the last double quote
/// of the line, verbatim. Empty lines and lines that begin with # are skipped, as is a byte-order mark at the start of
/// the file.
class StringTable {
public:
    /// The English table. `language` is the content of another string file whose entries replace the English ones;
    /// missing entries stay English. Failure 5 for a line that cannot be parsed, with a description that names the
    /// line.
    explicit StringTable(std::string_view language = {});

    /// Failure 326 for a number without a text.
    [[nodiscard]] const std::string& text(int number) const;

private:
    void load(std::string_view content);

    std::map<int, std::string> texts_;
};

} // namespace ko
