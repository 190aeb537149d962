#pragma once

#include <cstddef>
#include <string>

namespace ko {

/// What the edit commands ask of the text that is being edited. Text is UTF-8; positions count characters.
class TextEditing {
public:
    [[nodiscard]] virtual std::size_t selLength() const = 0;
    [[nodiscard]] virtual std::string selText() const = 0;
    /// Replaces the selection, or inserts at the cursor; the cursor goes behind what was put in.
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
    /// What the text becomes with `text` in place of the selection, the cursor behind it.
    [[nodiscard]] EditText replaced(const std::string& text) const;

private:
    std::string text_;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
};

} // namespace ko
