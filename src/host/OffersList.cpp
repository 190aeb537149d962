#include "host/OffersList.h"

#include "host/OfferJson.h"
#include "page/OfferTexts.h"

namespace ko {

namespace {

std::string offersText(const PlayedPage& played, const OfferedQuantity& quantity, const OfferTexts& texts)
{
    const OfferAccount& account = played.page().*quantity.account;
    std::string text = "\n" + std::string(quantity.setting) + ": " + texts.common(account) + "\n";
    for (std::size_t i = 0; i < account.drivers.size(); ++i) {
        text += "  " + played.drivers().at(i)->settings().name;
        for (const std::string& told : texts.row(account, i))
            text += " | " + told;
        text += "\n";
    }
    return text;
}

} // namespace

std::string offersText(const PlayedPage& played)
{
    const OfferTexts texts([&](int number) { return played.text(number); }, Locale{}, false);
    std::string text;
    for (const OfferedQuantity& quantity : offeredQuantities)
        if ((played.page().*quantity.label).isShown())
            text += offersText(played, quantity, texts);
    return text;
}

Json offersOf(const PlayedPage& played, const std::string& setting)
{
    for (const OfferedQuantity& quantity : offeredQuantities)
        if (quantity.setting == setting)
            return offersJson(played.page().*quantity.account, played.drivers());
    return {};
}

} // namespace ko
