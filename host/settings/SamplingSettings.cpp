#include "host/settings/Settings.h"

#include "page/Quantities.h"
#include "platform/NumberText.h"

#include <cmath>

namespace ko {

namespace {

Control& shown(Page& page, const Quantity& quantity)
{
    ComboBox& list = page.*quantity.list;
    return list.visible() ? static_cast<Control&>(list) : page.*quantity.box;
}

/// The rate of a period, in as few digits as bring back that period.
double rateOf(double period)
{
    const double rate = 1.0 / period;
    const auto shown = numberIn(numberText(rate, Locale{}));
    return shown && 1.0 / *shown == period ? *shown : rate;
}

Value read(const PlayedPage& played, const Quantity& quantity)
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

Offer offerOf(const PlayedPage& played, const Quantity& quantity)
{
    Offer offer;
    const ComboBox& list = played.page().*quantity.list;
    if (!list.visible()) {
        offer.range = rangeOf(played.page(), quantity);
        return offer;
    }
    for (const ComboBox::Item& item : list.items())
        if (numberIn(item.text))
            offer.choices.push_back(item.text);
    return offer;
}

/// The page says itself what is wrong with a number typed into a box.
Request requestOf(const PlayedPage& played, const Quantity& quantity, const std::string& value)
{
    const Control& control = shown(played.page(), quantity);
    const auto number = numberIn(value);
    const Value wanted = number ? Value(*number) : Value(value);
    if (&control == &(played.page().*quantity.box))
        return {{"focus " + control.name(), "text " + control.name() + " " + quotedWord(value), "leave"}, wanted};
    const std::vector<std::string> choices = offerOf(played, quantity).choices;
    return {{"choose " + control.name() + " " + quotedWord(choices.at(choiceOf(choices, value)))}, wanted};
}

Setting settingOf(const Quantity& quantity, const Page& page)
{
    Setting setting;
    setting.name = quantity.name;
    setting.label = labelText(page.*quantity.label);
    setting.unit = quantity.unit;
    setting.controls = {(page.*quantity.list).name(), (page.*quantity.box).name()};
    setting.control = [&quantity](Page& shownOn) -> Control& { return shown(shownOn, quantity); };
    setting.read = [&quantity](const PlayedPage& played) { return read(played, quantity); };
    setting.offer = [&quantity](const PlayedPage& played) { return offerOf(played, quantity); };
    setting.write = [&quantity](const PlayedPage& played, const std::string& value) {
        return requestOf(played, quantity, value);
    };
    return setting;
}

} // namespace

void addSamplingSettings(Settings& settings, const PlayedPage& played)
{
    for (const Quantity& quantity : quantities)
        settings.push_back(settingOf(quantity, played.page()));
}

} // namespace ko
