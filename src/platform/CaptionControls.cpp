#include "platform/CaptionControls.h"

#include "platform/Form.h"

namespace ko {

void CaptionControl::setCaption(const std::string& caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    tellView(Aspect::Text);
}

void LimitedLabel::setShare(double share)
{
    if (share_ == share)
        return;
    share_ = share;
    tellView(Aspect::Text);
}

Outcome PressControl::userClicked()
{
    const Outcome entered = enter();
    if (entered != Outcome::Done)
        return entered;
    form().tellUserActs("click", name());
    raise(click);
    return entered;
}

void Image::setPicture(int resource)
{
    if (picture_ == resource)
        return;
    picture_ = resource;
    tellView(Aspect::Text);
}

void OptionButton::select()
{
    if (take())
        raise(click);
}

void OptionButton::showSelected()
{
    take();
}

bool OptionButton::take()
{
    if (value_)
        return false;
    for (Control* control : form().controls()) {
        auto* other = dynamic_cast<OptionButton*>(control);
        if (other && other != this && other->container() == container())
            other->deselect();
    }
    value_ = true;
    tellView(Aspect::Selection);
    return true;
}

void OptionButton::deselect()
{
    if (!value_)
        return;
    value_ = false;
    tellView(Aspect::Selection);
}

Outcome OptionButton::userClicked()
{
    const Outcome entered = enter();
    if (entered != Outcome::Done)
        return entered;
    form().tellUserActs("click", name());
    raise(take() ? click : clickAgain);
    return entered;
}

} // namespace ko
