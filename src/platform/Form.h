#pragma once

#include "platform/Control.h"

#include <concepts>
#include <vector>

namespace ko {

class PressControl;

/// A key press on its way to a form. A handler consumes it by setting `keyCode` to 0.
struct KeyPress {
    std::int16_t keyCode = 0;
    std::int16_t shift = 0; ///< 1 Shift, 2 Ctrl, 4 Alt, added up
};

namespace key {
inline constexpr std::int16_t f1 = 112;
inline constexpr std::int16_t f12 = 123;
} // namespace key

/// A page or a dialog: its controls in order of creation, its caption, its font and its focused control.
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
    /// The control with this name (`optStartTrig(3)` for a member of a control array); null when there is none.
    [[nodiscard]] Control* find(std::string_view name) const;

    /// The buttons of a dialog that Enter and Escape press, or null. A dialog that is closed by other means also
    /// presses the cancel button.
    [[nodiscard]] PressControl* okButton() const { return okButton_; }
    [[nodiscard]] PressControl* cancelButton() const { return cancelButton_; }
    void setButtons(PressControl& ok, PressControl& cancel)
    {
        okButton_ = &ok;
        cancelButton_ = &cancel;
    }

    /// The control that has the focus, or null.
    [[nodiscard]] Control* activeControl() const { return activeControl_; }
    /// Moves the focus to `control` (null: to no control). Returns false when the focused control's `validate` keeps
    /// the focus, or when `control` is disabled, hidden or takes no focus; nothing changes then.
    bool moveFocus(Control* control);
    /// The user moves the focus; as `moveFocus`.
    bool userMovedFocus(Control* control);
    /// The user presses a key; raises `keyDown`.
    void userPressedKey(KeyPress& press) const;
    /// Removes the focus without validation; the control that had it raises `lostFocus`.
    void dropFocus();

    /// Whether the form is only read: its view keeps the values of disabled controls readable.
    [[nodiscard]] bool isForReading() const { return isForReading_; }
    void setForReading(bool forReading);

    /// Position and size in twips; used to place dialogs.
    [[nodiscard]] const Bounds& bounds() const { return bounds_; }
    void move(std::int32_t left, std::int32_t top);
    /// Sets the size of the inner area and raises `resized` when it changes.
    void resize(std::int32_t width, std::int32_t height);

    /// Set by the service that shows the form as a dialog and raised before the form is placed: resizes the form to the
    /// size that its view needs.
    std::function<void()> measure;
    /// Raised for every key press before the form's controls receive it.
    std::function<void(KeyPress&)> keyDown;
    /// The size of the inner area has changed; the form lays out its controls.
    std::function<void()> resized;
    /// Set by the view: the focus moved, the caption or the bounds changed.
    std::function<void()> view;
    /// Set by a recorder of the user's input. Raised with each step of an input, in the words of a scenario ("choose",
    /// "cmbSampleRate", "#3"), before it takes effect. Moving the focus to the control is a separate step.
    std::function<void(const std::vector<std::string>& words)> userActs;

    /// Raises `userActs` with these words (texts and integers); without a listener no strings are created.
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
    bool isForReading_ = false;
    Bounds bounds_;
};

} // namespace ko
