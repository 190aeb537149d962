#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ko {

/// The text up to its first line break: what a one-line text takes of it.
std::string_view firstLine(std::string_view text);

/// What the edit commands ask of the text that is being edited. Text is UTF-8; positions count characters.
class TextEditing {
public:
    [[nodiscard]] virtual std::size_t selLength() const = 0;
    [[nodiscard]] virtual std::string selText() const = 0;
    /// Replaces the selection, or inserts at the cursor, by the first line of `text`; the cursor goes after it.
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

    /// Positions beyond the text are drawn back to its end. Whether the selection is another one now.
    bool select(std::size_t start, std::size_t length);
    /// Whether the text is another one now.
    bool put(const std::string& text, std::size_t start, std::size_t length);
    /// What the text becomes with the first line of `text` in place of the selection, the cursor after it. The
    /// empty text deletes the selection; a text with nothing on its first line changes nothing.
    [[nodiscard]] EditText replaced(const std::string& text) const;
    /// What a user's input, which has made `text` of it, leaves, with its selection. Of what was put in before the
    /// cursor only the first line counts; where that holds nothing the input changes nothing.
    [[nodiscard]] EditText entered(const std::string& text, std::size_t start, std::size_t length) const;

private:
    [[nodiscard]] std::string beforeSelection() const;
    [[nodiscard]] std::string afterSelection() const;

    std::string text_;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
};

} // namespace ko
