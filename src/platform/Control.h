#pragma once

#include "platform/Font.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace ko {

class Form;
class TextEditing;

/// The part of a control that has changed; a view refreshes only that.
enum class Aspect { Usability, Text, Selection, Items, Font, Hint, Bounds, Mark };

/// The result of a user's input.
enum class Outcome {
    Done,   ///< the control accepted the input
    Inert,  ///< the control is disabled, hidden or locked, by itself or by its frame
    Refused ///< the focused control refused to give up the focus
};

/// Position and size in twips within the form.
struct Bounds {
    std::int32_t left = 0, top = 0, width = 0, height = 0;

    bool operator==(const Bounds&) const = default;
};

/// One control of a form: its properties, its events and the `user…` members through which the user's input enters.
///
/// A setter compares, stores, notifies the view and raises the event. Event handlers report their own failures; an
/// exception that a handler throws all the same propagates to the caller of the input member. A control must not
/// outlive its form and cannot be copied.
class Control {
public:
    /// `container` is the frame that holds the control, or null when the control is placed directly on the form.
    Control(Form& form, std::string name, Control* container = nullptr);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// The type name that loaders and scripts use: "TextBox", "ComboBox", ...
    [[nodiscard]] virtual std::string_view typeName() const = 0;
    [[nodiscard]] virtual bool takesFocus() const { return false; }
    [[nodiscard]] virtual bool hasFont() const { return true; }
    [[nodiscard]] virtual bool hasToolTip() const { return true; }
    /// The text being edited in the control, for the edit commands; null when there is none.
    [[nodiscard]] virtual TextEditing* textEditing() { return nullptr; }

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] Form& form() const { return form_; }
    [[nodiscard]] Control* container() const { return container_; }

    /// The control's own settings, regardless of its frame's. A focused control that can no longer be used loses the
    /// focus without validation.
    [[nodiscard]] bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    [[nodiscard]] bool visible() const { return visible_; }
    void setVisible(bool visible);
    /// Enabled and visible, by itself and by every frame around it.
    [[nodiscard]] bool isUsable() const;
    [[nodiscard]] bool isShown() const;
    /// Shown, but not usable, on a form that is only read.
    [[nodiscard]] bool isRead() const;

    [[nodiscard]] const std::string& tag() const { return tag_; }
    void setTag(const std::string& tag);
    /// Failure 5 for a type without tool tips.
    [[nodiscard]] const std::string& toolTipText() const;
    void setToolTipText(const std::string& text);
    [[nodiscard]] const Font& font() const { return font_; }
    void setFont(const Font& font);
    [[nodiscard]] const Bounds& bounds() const { return bounds_; }
    void move(const Bounds& bounds);

    [[nodiscard]] bool hasFocus() const;

    std::function<void()> gotFocus;
    std::function<void()> lostFocus;
    /// Called before the focus leaves; false keeps it.
    std::function<bool()> validate;
    /// Set by the one view that shows the control, cleared when the view is destroyed.
    std::function<void(Aspect)> view;

protected:
    void tellView(Aspect aspect) const;
    /// First step of every user input: inert when the control cannot be used, otherwise moves the focus to the control.
    Outcome enter();

private:
    friend class Form;

    Form& form_;
    std::string name_;
    Control* container_;
    bool enabled_ = true;
    bool visible_ = true;
    std::string tag_;
    std::string toolTipText_;
    Font font_;
    Bounds bounds_;
};

/// Raises an event that may have no handler.
inline void raise(const std::function<void()>& event)
{
    if (event)
        event();
}

} // namespace ko
