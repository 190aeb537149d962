#include "platform/Control.h"

#include "platform/Failure.h"
#include "platform/Form.h"

namespace ko {

Control::Control(Form& form, std::string name, Control* container)
    : form_(form), name_(std::move(name)), container_(container)
{
    form.add(*this);
}

void Control::setEnabled(bool enabled)
{
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    tellView(Aspect::Usability);
    form_.usabilityChanged();
}

void Control::setVisible(bool visible)
{
    if (visible_ == visible)
        return;
    visible_ = visible;
    tellView(Aspect::Usability);
    form_.usabilityChanged();
}

bool Control::isUsable() const
{
    for (const Control* control = this; control; control = control->container_)
        if (!control->enabled_ || !control->visible_)
            return false;
    return true;
}

bool Control::isShown() const
{
    for (const Control* control = this; control; control = control->container_)
        if (!control->visible_)
            return false;
    return true;
}

bool Control::isRead() const
{
    return form_.isForReading() && isShown() && !isUsable();
}

void Control::setTag(const std::string& tag)
{
    if (tag_ == tag)
        return;
    tag_ = tag;
    tellView(Aspect::Hint);
}

const std::string& Control::toolTipText() const
{
    if (!hasToolTip())
        fail(failure::invalidCall);
    return toolTipText_;
}

void Control::setToolTipText(const std::string& text)
{
    if (!hasToolTip())
        fail(failure::invalidCall);
    if (toolTipText_ == text)
        return;
    toolTipText_ = text;
    tellView(Aspect::Hint);
}

void Control::setFont(const Font& font)
{
    if (font_ == font)
        return;
    font_ = font;
    tellView(Aspect::Font);
}

void Control::move(const Bounds& bounds)
{
    if (bounds_ == bounds)
        return;
    bounds_ = bounds;
    tellView(Aspect::Bounds);
}

bool Control::hasFocus() const
{
    return form_.activeControl() == this;
}

void Control::tellView(Aspect aspect) const
{
    if (view)
        view(aspect);
}

Outcome Control::enter()
{
    if (!isUsable())
        return Outcome::Inert;
    if (takesFocus() && !form_.userMovedFocus(this))
        return Outcome::Refused;
    return isUsable() ? Outcome::Done : Outcome::Inert;
}

} // namespace ko
