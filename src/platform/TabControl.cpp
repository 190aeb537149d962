#include "platform/TabControl.h"

#include "platform/Failure.h"
#include "platform/Form.h"

namespace ko {

TabControl::TabControl(Form& form, std::string name, std::vector<Control*> frames)
    : Control(form, std::move(name)), frames_(std::move(frames)), tabs_(frames_.size())
{
}

TabControl::Tab& TabControl::at(std::int32_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= tabs_.size())
        fail(failure::subscriptOutOfRange);
    return tabs_[static_cast<std::size_t>(index)];
}

Control& TabControl::frame(std::int32_t index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= frames_.size())
        fail(failure::subscriptOutOfRange);
    return *frames_[static_cast<std::size_t>(index)];
}

void TabControl::setTabCaption(std::int32_t index, const std::string& caption)
{
    at(index).caption = caption;
    tellView(Aspect::Items);
}

void TabControl::setTabEnabled(std::int32_t index, bool enabled)
{
    at(index).enabled = enabled;
    frame(index).setEnabled(enabled);
    tellView(Aspect::Items);
}

void TabControl::setTab(std::int32_t index)
{
    at(index);
    if (tab_ == index)
        return;
    tab_ = index;
    tellView(Aspect::Selection);
}

Outcome TabControl::userChoseTab(std::int32_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= tabs_.size() || !at(index).enabled)
        return Outcome::Inert;
    const Outcome entered = enter();
    if (entered != Outcome::Done)
        return entered;
    form().tellUserActs("choose", name(), "#" + std::to_string(index));
    setTab(index);
    return entered;
}

} // namespace ko
