#include "host/settings/OffersList.h"

#include "host/scenario/OfferJson.h"
#include "host/support/InputError.h"
#include "page/Differences.h"
#include "page/OfferTexts.h"
#include "page/Quantities.h"

#include <nlohmann/json.hpp>

namespace ko {

namespace {

std::string offersText(const HeadlessPage& played, const Quantity& quantity, const OfferTexts& texts)
{
    const OfferAccount& account = played.page().*quantity.number->offers;
    std::string text = "\n" + std::string(quantity.name) + ": " + texts.common(account) + "\n";
    for (std::size_t i = 0; i < account.drivers.size(); ++i) {
        text += "  " + shortLine(played.drivers().at(i)->name());
        for (const std::string& cell : texts.row(account, i))
            text += " | " + shortLine(cell);
        text += differs(played.page(), *quantity.number, i)
                    ? " | " + oneLine(played.text(textNumber::compare::otherThanPage)) + "\n"
                    : "\n";
    }
    return text;
}

} // namespace

std::string offersText(const HeadlessPage& played)
{
    const OfferTexts texts([&](int number) { return played.text(number); }, Locale{}, false);
    std::string text;
    for (const Quantity& quantity : quantities)
        if (!quantity.isRate && (played.page().*quantity.label).isShown())
            text += offersText(played, quantity, texts);
    return text;
}

Json offersOf(const HeadlessPage& played, const std::string& setting)
{
    for (const Quantity& quantity : quantities)
        if (!quantity.isRate && quantity.name == setting)
            return offersJson(played.page().*quantity.number->offers, played.drivers());
    return {};
}

Json differencesOf(const HeadlessPage& played, const std::string& setting)
{
    Json list = Json::array();
    for (const Quantity& quantity : quantities) {
        const OfferAccount& account = played.page().*quantity.number->offers;
        for (std::size_t i = 0; quantity.name == setting && i < account.readings.size(); ++i)
            if (differs(played.page(), *quantity.number, i))
                list.push_back(
                    {{"name", played.drivers().at(i)->name()}, {"value", quantity.shown(*account.readings[i].held)}});
    }
    return list;
}

} // namespace ko
