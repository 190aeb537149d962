#include "timebase/SetAll.h"

#include "support/Validation.h"

namespace ko {

namespace {

/// Where the drivers share a list they have no range in common; each keeps what it can of another number.
NumberBounds boundsOf(const Page& page, const Quantity& quantity)
{
    const bool isList = (page.*quantity.list).visible();
    return isList ? NumberBounds{.minimum = {}, .maximum = {}, .positive = true} : quantity.bounds(page);
}

} // namespace

bool SetAll::isPossible(const Quantity& quantity) const
{
    const ComboBox& list = page_.*quantity.list;
    const bool canBeEdited = list.visible() ? list.isUsable() : (page_.*quantity.box).isUsable();
    return page_.isShown && !page_.isLoading && !page_.readOnly && canBeEdited;
}

Outcome SetAll::enter(const Quantity& quantity, const std::string& text)
{
    if (!isPossible(quantity))
        return Outcome::Inert;
    const Steps step(support_.errors, "setAll");
    const auto entered =
        step.value([&] { return readNumber(support_, text, quantity.type, boundsOf(page_, quantity), true); });
    const TimebaseNumber& number = *quantity.number;
    ValueEditors& editors = number.toAllDrivers ? staticEditors_.editors() : dynamicEditors_.editors(number);
    std::optional<double> value;
    if (!entered || !step([&] { value = editors.exactNumber(quantity, *entered); }))
        return Outcome::Done;
    if (number.toAllDrivers)
        staticEditors_.setAll(step, *value);
    else
        dynamicEditors_.setAll(step, number, *value);
    return Outcome::Done;
}

} // namespace ko
