#pragma once

#include "platform/Control.h"

#include <concepts>
#include <vector>

namespace ko {

class PressControl;

/// A key press on its way to a form. A handler swallows it by setting `keyCode` to 0.
struct KeyPress {
    std::int16_t keyCode = 0;
    std::int16_t shift = 0; ///< 1 Shift, 2 Ctrl, 4 Alt, added up
};

namespace key {
inline constexpr std::int16_t f1 = 112;
inline constexpr std::int16_t f12 = 123;
} // namespace key

/// A page or a dialog: its controls in the order in which they were made, its caption, its font, and which of its
/// controls has the focus.
class Form {
public:
    explicit Form(std::string name);
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption);
    [[nodiscard]] const Font& font() const { return font_; }
    void setFont(const Font& font) { font_ = font; }

    [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }
    /// The control of this name, `optStartTrig(3)` for a member of a control array; null when there is none.
    [[nodiscard]] Control* find(std::string_view name) const;

    /// The buttons of a dialog that Enter presses, and Escape; the latter also ends a dialog that nothing else ends.
    /// Null where there is none.
    [[nodiscard]] PressControl* okButton() const { return okButton_; }
    [[nodiscard]] PressControl* cancelButton() const { return cancelButton_; }
    void setButtons(PressControl& ok, PressControl& cancel)
    {
        okButton_ = &ok;
        cancelButton_ = &cancel;
    }

    /// The control that has the focus, or null.
    [[nodiscard]] Control* activeControl() const { return activeControl_; }
    /// Moves the focus to `control` (null: to no control). The control left is asked first and may keep the focus;
    /// false then. A control that is disabled, hidden or takes no focus leaves everything as it is: false, too.
    bool moveFocus(Control* control);
    /// The user moves the focus; as `moveFocus`.
    bool userMovedFocus(Control* control);
    /// The user presses a key; raises `keyDown`.
    void userPressedKey(KeyPress& press) const;
    /// Takes the focus away without asking; the control left runs its lost-focus event.
    void dropFocus();

    /// Position and size in twips; dialogs are placed by them.
    [[nodiscard]] const Bounds& bounds() const { return bounds_; }
    void move(std::int32_t left, std::int32_t top);
    /// Sets the size of the inner area and raises `resized` when it is another one.
    void resize(std::int32_t width, std::int32_t height);

    /// Set by whoever shows the form as a dialog, raised before the form is placed: resizes it to what its view needs.
    std::function<void()> measure;
    /// Every key that reaches the form before its controls see it.
    std::function<void(KeyPress&)> keyDown;
    /// The inner area has another size; the form lays its controls out.
    std::function<void()> resized;
    /// Set by the view: the focus moved, the caption or the bounds changed.
    std::function<void()> view;
    /// Set by whoever records the user's input: each step of an input, in the words of a scenario ("choose",
    /// "cmbSampleRate", "#3"), before it takes effect. Moving the focus to the control is a step of its own.
    std::function<void(const std::vector<std::string>& words)> userActs;

    /// Raises `userActs` with these words, texts and whole numbers; without a listener no word is made.
    template <class... Words> void tellUserActs(const Words&... words) const
    {
        if (userActs)
            userActs({word(words)...});
    }

private:
    static std::string word(std::string_view text) { return std::string(text); }
    static std::string word(std::integral auto number) { return std::to_string(number); }

    friend class Control;
    void add(Control& control) { controls_.push_back(&control); }
    void usabilityChanged();
    void tellView() const { raise(view); }

    std::string name_;
    std::string caption_;
    Font font_;
    std::vector<Control*> controls_;
    Control* activeControl_ = nullptr;
    PressControl* okButton_ = nullptr;
    PressControl* cancelButton_ = nullptr;
    bool validating_ = false;
    Bounds bounds_;
};

} // namespace ko
