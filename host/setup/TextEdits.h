#pragma once

#include <string>
#include <vector>

namespace ko {

/// Changes of a JSON text with comments, each at byte positions of the text before. Changes must not overlap. At the
/// same position insertions come first, in the order in which they were added.
class TextEdits {
public:
    /// `text` must outlive this object.
    explicit TextEdits(const std::string& text) : text_(text) {}

    void replace(std::size_t begin, std::size_t end, std::string with)
    {
        edits_.push_back({begin, end, std::move(with)});
    }
    void insert(std::size_t at, std::string text) { replace(at, at, std::move(text)); }
    /// Removes an item of a list or object, and the comma after it if it has one. An item with lines of its own goes
    /// with them and with a comment at their end.
    void removeItem(std::size_t begin, std::size_t end);

    /// Returns the text with all changes.
    [[nodiscard]] std::string result() const;

private:
    struct Edit {
        std::size_t begin, end;
        std::string with;
    };

    const std::string& text_;
    std::vector<Edit> edits_;
};

// Places in a JSON text with comments.

/// Returns the first byte from `at` on that belongs neither to a blank nor to a comment.
std::size_t afterBlanks(const std::string& text, std::size_t at);
/// Returns the comma after an item that ends at `at`, or npos.
std::size_t commaAfter(const std::string& text, std::size_t at);
/// Returns the end of the line, without its line break, if only blanks and comments follow `at` on it; else `at`.
std::size_t endOfLine(const std::string& text, std::size_t at);
/// Returns whether only blanks precede `at` on its line.
bool beginsLine(const std::string& text, std::size_t at);
/// Returns the blanks at the beginning of the line of `at`.
std::string indentAt(const std::string& text, std::size_t at);
/// Returns the line break that the text uses.
std::string lineBreakOf(const std::string& text);
/// Returns the blanks by which the text indents: those of its first indented line, else two.
std::string indentUnitOf(const std::string& text);

} // namespace ko
