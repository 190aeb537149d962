#pragma once

#include "platform/Control.h"
#include "platform/EditText.h"

namespace ko {

/// A one-line text box. Text is UTF-8; selection positions count characters.
class TextBox : public Control, public TextEditing {
public:
    using Control::Control;

    [[nodiscard]] std::string_view typeName() const override { return "TextBox"; }
    [[nodiscard]] bool takesFocus() const override { return true; }
    [[nodiscard]] TextEditing* textEditing() override { return this; }

    [[nodiscard]] const std::string& text() const { return edit_.text(); }
    /// A different text raises `change` and moves the cursor to the start.
    void setText(const std::string& text);

    /// A locked box can be selected and copied but not typed in.
    [[nodiscard]] bool locked() const { return locked_; }
    void setLocked(bool locked);

    /// Marks the entry as not acceptable; affects only the appearance.
    [[nodiscard]] bool marked() const { return marked_; }
    void setMarked(bool marked);

    /// The text that Escape restores; empty when the box shows it or there is none.
    [[nodiscard]] const std::string& escapeText() const { return escapeText_; }
    void setEscapeText(const std::string& text);

    /// Whether the user has changed the text since the box got the focus.
    [[nodiscard]] bool isEdited() const { return edited_; }
    void setEdited(bool edited) { edited_ = edited; }

    [[nodiscard]] std::size_t selStart() const { return edit_.selStart(); }
    [[nodiscard]] std::size_t selLength() const override { return edit_.selLength(); }
    /// Positions beyond the text are clamped to its end.
    void select(std::size_t start, std::size_t length);
    [[nodiscard]] std::string selText() const override { return edit_.selText(); }
    void setSelText(const std::string& text) override;

    /// The user replaces the selection with the first line of `text`, in one change.
    Outcome userTyped(const std::string& text);
    /// The user's input has changed the box to this text and selection, in one change (see `EditText::entered`). Does
    /// not move the focus.
    Outcome userReplaced(const std::string& text, std::size_t start, std::size_t length);
    /// The user is about to drop text on the box: moves the focus here, as a click does. Only if this returns Done may
    /// the text follow, by `userReplaced`.
    Outcome userDropsText();
    Outcome userSelected(std::size_t start, std::size_t length);
    Outcome userDoubleClicked();
    /// The user presses Escape, which reverts what was typed.
    Outcome userUndid();

    std::function<void()> change;
    std::function<void()> doubleClick;
    std::function<void()> undo;

private:
    void recordReplacement(const EditText& edit) const;
    void put(const std::string& text, std::size_t start, std::size_t length);

    EditText edit_;
    bool locked_ = false;
    bool marked_ = false;
    std::string escapeText_;
    bool edited_ = false;
};

} // namespace ko
