#pragma once

#include "platform/Font.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace ko {

class Form;
class TextEditing;

/// What of a control has changed; a view refreshes just that.
enum class Aspect { Usability, Text, Selection, Items, Font, Hint, Bounds, Mark };

/// What became of a user's input.
enum class Outcome {
    Done,   ///< the control took it
    Inert,  ///< the control is disabled, hidden or locked, by itself or by its frame
    Refused ///< the control that has the focus did not let it go
};

/// Position and size in twips within the form.
struct Bounds {
    std::int32_t left = 0, top = 0, width = 0, height = 0;

    bool operator==(const Bounds&) const = default;
};

/// One control of a form: its properties, the events it raises and the door by which the user's input enters.
///
/// A setter compares, stores, tells the view, raises. Event handlers report their own failures; a handler that
/// throws all the same reaches whoever gave the input. Controls live as long as their form and are never copied.
class Control {
public:
    /// `container` is the frame that holds the control, or null when it stands on the form itself.
    Control(Form& form, std::string name, Control* container = nullptr);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// The type name that loaders and scripts know: "TextBox", "ComboBox", ...
    [[nodiscard]] virtual std::string_view typeName() const = 0;
    [[nodiscard]] virtual bool takesFocus() const { return false; }
    [[nodiscard]] virtual bool hasFont() const { return true; }
    [[nodiscard]] virtual bool hasToolTip() const { return true; }
    /// The text that is being edited in the control, for the edit commands; null when there is none.
    [[nodiscard]] virtual TextEditing* textEditing() { return nullptr; }

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] Form& form() const { return form_; }
    [[nodiscard]] Control* container() const { return container_; }

    /// The control's own switches, whatever its frame's are. A focused control that can no longer be used loses the
    /// focus without validation.
    [[nodiscard]] bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    [[nodiscard]] bool visible() const { return visible_; }
    void setVisible(bool visible);
    /// Enabled and visible, by itself and by every frame around it.
    [[nodiscard]] bool isUsable() const;
    [[nodiscard]] bool isShown() const;

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
    /// Asked before the focus leaves; false keeps it.
    std::function<bool()> validate;
    /// Set by the one view that shows the control, cleared when the view goes.
    std::function<void(Aspect)> view;

protected:
    void tellView(Aspect aspect) const;
    /// The start of every input by the user: refused when the control cannot be used, else the focus moves here.
    Outcome enter();

private:
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
