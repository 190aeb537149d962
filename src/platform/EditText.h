#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ko {

/// The text up to its first line break, which is all that a one-line text accepts.
std::string_view firstLine(std::string_view text);

/// Access of the edit commands to the text being edited. Text is UTF-8; positions count characters.
class TextEditing {
public:
    [[nodiscard]] virtual std::size_t selLength() const = 0;
    [[nodiscard]] virtual std::string selText() const = 0;
    /// Replaces the selection by the first line of `text`, or inserts it at the cursor; the cursor moves after it.
    virtual void setSelText(const std::string& text) = 0;

protected:
    ~TextEditing() = default;
};

/// A text and the selection in it.
class EditText {
public:
    [[nodiscard]] const std::string& text() const { return text_; }
    [[nodiscard]] std::size_t selStart() const { return selStart_; }
    [[nodiscard]] std::size_t selLength() const { return selLength_; }
    [[nodiscard]] std::string selText() const;

    /// Positions beyond the text are clamped to its end. Returns whether the selection changed.
    bool select(std::size_t start, std::size_t length);
    /// Returns whether the text changed.
    bool put(const std::string& text, std::size_t start, std::size_t length);
    /// The result of replacing the selection with the first line of `text`, with the cursor after it. An empty text
    /// deletes the selection; a text whose first line is empty changes nothing.
    [[nodiscard]] EditText replaced(const std::string& text) const;
    /// The result of a user's input that turned this text into `text` with the given selection. Of the text inserted
    /// before the cursor only the first line is kept; if that line is empty the input changes nothing.
    [[nodiscard]] EditText entered(const std::string& text, std::size_t start, std::size_t length) const;

private:
    [[nodiscard]] std::string beforeSelection() const;
    [[nodiscard]] std::string afterSelection() const;

    std::string text_;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
};

} // namespace ko
