#include "platform/Form.h"

#include "platform/Scoped.h"

#include <algorithm>

namespace ko {

Form::Form(std::string name) : name_(std::move(name)) {}

void Form::setCaption(const std::string& caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    tellView();
}

Control* Form::find(std::string_view name) const
{
    const auto found =
        std::find_if(controls_.begin(), controls_.end(), [&](const Control* c) { return c->name() == name; });
    return found == controls_.end() ? nullptr : *found;
}

bool Form::moveFocus(Control* control)
{
    if (control == activeControl_)
        return true;
    if (control && (!control->takesFocus() || !control->isUsable()))
        return false;
    // A message box that a validate handler shows may cause the toolkit to move the focus again.
    if (validating_)
        return false;
    if (activeControl_ && activeControl_->validate) {
        const Scoped guard(validating_, true);
        if (!activeControl_->validate()) {
            tellView();
            return false;
        }
    }
    dropFocus();
    if (control && !control->isUsable())
        return false;
    activeControl_ = control;
    tellView();
    if (control)
        raise(control->gotFocus);
    return true;
}

bool Form::userMovedFocus(Control* control)
{
    if (control && control != activeControl_)
        tellUserActs("focus", control->name());
    else if (!control && activeControl_)
        tellUserActs("leave");
    return moveFocus(control);
}

namespace {

std::string keyName(const KeyPress& press)
{
    std::string name;
    for (const auto& [flag, held] : {std::pair{1, "Shift+"}, std::pair{2, "Ctrl+"}, std::pair{4, "Alt+"}})
        if ((press.shift & flag) != 0)
            name += held;
    return name + "F" + std::to_string(press.keyCode - key::f1 + 1);
}

} // namespace

void Form::userPressedKey(KeyPress& press) const
{
    if (userActs && press.keyCode >= key::f1 && press.keyCode <= key::f12)
        userActs({"key", keyName(press)});
    if (keyDown)
        keyDown(press);
}

void Form::dropFocus()
{
    if (!activeControl_)
        return;
    const Control* left = activeControl_;
    activeControl_ = nullptr;
    tellView();
    raise(left->lostFocus);
}

void Form::usabilityChanged()
{
    if (activeControl_ && !activeControl_->isUsable())
        dropFocus();
}

void Form::setForReading(bool forReading)
{
    if (isForReading_ == forReading)
        return;
    isForReading_ = forReading;
    for (const Control* control : controls_)
        control->tellView(Aspect::Usability);
    tellView();
}

void Form::move(std::int32_t left, std::int32_t top)
{
    bounds_.left = left;
    bounds_.top = top;
    tellView();
}

void Form::resize(std::int32_t width, std::int32_t height)
{
    if (bounds_.width == width && bounds_.height == height)
        return;
    bounds_.width = width;
    bounds_.height = height;
    raise(resized);
    tellView();
}

} // namespace ko
