#include "host/settings/Settings.h"

#include "page/Quantities.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

Control& shown(Page& page, const Quantity& quantity)
{
    ComboBox& list = page.*quantity.list;
    return list.visible() ? static_cast<Control&>(list) : page.*quantity.box;
}

/// Returns the rate of a period, rounded as the page shows it if that converts back to the same period.
double rateOf(double period)
{
    const double rate = 1.0 / period;
    const auto shown = numberIn(numberText(rate, Locale{}));
    return shown && 1.0 / *shown == period ? *shown : rate;
}

Value read(const HeadlessPage& played, const Quantity& quantity)
{
    const IndexedTimebase at = shownTimebase(played.page(), *quantity.number);
    if (!at)
        return {};
    const double held = (at.timebase->*quantity.number->get)();
    const double figure = quantity.isRate ? rateOf(held) : held;
    return std::isfinite(figure) ? Value(figure) : Value();
}

std::optional<Range> rangeOf(const Page& page, const Quantity& quantity)
{
    const Range range = (page.*quantity.number->offers).range;
    if (range == Range{})
        return std::nullopt;
    return quantity.isRate ? Range{rateOf(range.maximum), rateOf(range.minimum)} : range;
}

AllowedValues allowedFor(const HeadlessPage& played, const Quantity& quantity)
{
    AllowedValues allowed;
    const ComboBox& list = played.page().*quantity.list;
    if (!list.visible()) {
        allowed.range = rangeOf(played.page(), quantity);
        return allowed;
    }
    for (const ComboBox::Item& item : list.items())
        if (numberIn(item.text))
            allowed.choices.push_back(item.text);
    return allowed;
}

std::int32_t entryOf(const ComboBox& list, const std::string& text)
{
    const auto found = std::find_if(list.items().begin(), list.items().end(),
                                    [&](const ComboBox::Item& item) { return item.text == text; });
    return static_cast<std::int32_t>(found - list.items().begin());
}

/// Numbers typed into a box are not checked here, because the page reports what is wrong with them.
Request requestOf(const HeadlessPage& played, const Quantity& quantity, const std::string& value)
{
    const auto number = numberIn(value);
    const Value wanted = number ? Value(*number) : Value(value);
    if (!(played.page().*quantity.list).visible())
        return {[&quantity, value](HeadlessPage& at) { at.enter(at.page().*quantity.box, value); }, wanted};
    const std::vector<std::string> choices = allowedFor(played, quantity).choices;
    return {[&quantity, choice = choices.at(choiceOf(choices, value))](HeadlessPage& at) {
                ComboBox& list = at.page().*quantity.list;
                at.give(list.userChose(entryOf(list, choice)));
            },
            wanted};
}

Setting settingOf(const Quantity& quantity, const Page& page)
{
    Setting setting;
    setting.name = quantity.name;
    setting.label = labelText(page.*quantity.label);
    setting.unit = quantity.unit;
    setting.controls = {(page.*quantity.list).name(), (page.*quantity.box).name()};
    setting.control = [&quantity](Page& shownOn) -> Control& { return shown(shownOn, quantity); };
    setting.read = [&quantity](const HeadlessPage& played) { return read(played, quantity); };
    setting.allowed = [&quantity](const HeadlessPage& played) { return allowedFor(played, quantity); };
    setting.write = [&quantity](const HeadlessPage& played, const std::string& value) {
        return requestOf(played, quantity, value);
    };
    return setting;
}

} // namespace

void addSamplingSettings(Settings& settings, const HeadlessPage& played)
{
    for (const Quantity& quantity : quantities)
        settings.push_back(settingOf(quantity, played.page()));
}

} // namespace ko
