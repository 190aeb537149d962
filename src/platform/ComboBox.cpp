#include "platform/ComboBox.h"

#include "platform/Failure.h"
#include "platform/Form.h"

namespace ko {

bool ComboBox::isEntry(std::int32_t index) const
{
    return index >= 0 && static_cast<std::size_t>(index) < items_.size();
}

void ComboBox::setItems(std::vector<Item> items)
{
    items_ = std::move(items);
    index_ = -1;
    tellView(Aspect::Items);
}

void ComboBox::replaceItem(std::int32_t index, Item item)
{
    if (!isEntry(index))
        fail(failure::invalidCall);
    items_[static_cast<std::size_t>(index)] = std::move(item);
    tellView(Aspect::Items);
}

void ComboBox::select(std::int32_t index)
{
    if (index != -1 && !isEntry(index))
        fail(failure::invalidCall);
    if (index_ == index)
        return;
    index_ = index;
    tellView(Aspect::Selection);
}

const std::string& ComboBox::text() const
{
    static const std::string none;
    return index_ < 0 ? none : items_[static_cast<std::size_t>(index_)].text;
}

std::int32_t ComboBox::itemData() const
{
    if (index_ < 0)
        fail(failure::invalidCall);
    return items_[static_cast<std::size_t>(index_)].itemData;
}

Outcome ComboBox::userChose(std::int32_t index)
{
    if (!isEntry(index))
        return Outcome::Inert;
    const Outcome entered = enter();
    if (entered != Outcome::Done)
        return entered;
    // Leaving the other control may have replaced the items.
    if (!isEntry(index))
        return Outcome::Inert;
    form().tellUserActs("choose", name(), "#" + std::to_string(index));
    select(index);
    raise(click);
    return Outcome::Done;
}

} // namespace ko
