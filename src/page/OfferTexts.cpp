#include "page/OfferTexts.h"

#include "platform/NumberText.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"

#include <algorithm>

namespace ko {

namespace {

namespace offerText = textNumber::offers;
namespace compareText = textNumber::compare;

/// More values than this are counted instead of listed.
constexpr std::uint32_t listedAtMost = 20;

Range ratesOf(Range periods)
{
    const auto rate = [](double period) { return period > 0.0 ? 1.0 / period : 0.0; };
    return {rate(periods.maximum), rate(periods.minimum)};
}

} // namespace

std::string OfferTexts::number(double value) const
{
    return numberText(asRates_ ? 1.0 / value : value, locale_);
}

std::string OfferTexts::valuesIn(std::size_t count, Range ends) const
{
    if (count == 1)
        return filled(texts_(offerText::oneValue), {number(ends.minimum)});
    const Range shown = asRates_ ? Range{ends.maximum, ends.minimum} : ends;
    return filled(texts_(offerText::values), {std::to_string(count), number(shown.minimum), number(shown.maximum)});
}

std::string OfferTexts::range(Range range) const
{
    if (range.minimum > range.maximum)
        return texts_(offerText::noValue);
    const Range shown = asRates_ ? ratesOf(range) : range;
    const std::string lowest = numberText(shown.minimum, locale_);
    const std::string highest = numberText(shown.maximum, locale_);
    if (!(shown.minimum > 0.0))
        return filled(texts_(offerText::atMost), {highest});
    return shown.maximum > 0.0 ? filled(texts_(offerText::fromTo), {lowest, highest})
                               : filled(texts_(offerText::atLeast), {lowest});
}

std::string OfferTexts::offered(const DriverOffer& offer) const
{
    std::string text;
    switch (offer.kind) {
    case DriverOffer::Kind::NoTimebase: text = texts_(offerText::noTimebase); break;
    case DriverOffer::Kind::Nothing: text = texts_(offerText::nothing); break;
    case DriverOffer::Kind::List: text = valuesIn(offer.choices, offer.offered); break;
    case DriverOffer::Kind::Range: text = range(offer.offered); break;
    }
    if (offer.unusable > 0)
        text = filled(texts_(offerText::unusable), {text, std::to_string(offer.unusable)});
    return offer.hasFailed ? filled(texts_(offerText::failed), {text}) : text;
}

std::string OfferTexts::removed(const OfferAccount& account, const DriverOffer& offer) const
{
    std::string text;
    for (std::uint32_t i = 0; i < std::min(offer.removed, listedAtMost); ++i)
        text += (i == 0 ? "" : "; ") + number(account.removed[offer.removedFrom + i]);
    if (offer.removed > listedAtMost)
        text = filled(texts_(offerText::andMore), {text, std::to_string(offer.removed - listedAtMost)});
    return text;
}

std::string OfferTexts::beginning(const OfferAccount& account, const DriverOffer& offer) const
{
    const std::string text = texts_(offerText::begins);
    return offer.removed > 0 ? filled(texts_(offerText::outside), {text, removed(account, offer)}) : text;
}

std::string OfferTexts::effect(const OfferAccount& account, const DriverOffer& offer) const
{
    switch (offer.effect) {
    case DriverOffer::Effect::Begins: return beginning(account, offer);
    case DriverOffer::Effect::Removes: return filled(texts_(offerText::removes), {removed(account, offer)});
    case DriverOffer::Effect::Empties:
        return offer.removed > 0 ? filled(texts_(offerText::removesAll), {removed(account, offer)})
                                 : texts_(offerText::noneInside);
    case DriverOffer::Effect::Narrows: return filled(texts_(offerText::narrows), {range(offer.kept)});
    case DriverOffer::Effect::None: break;
    }
    return texts_(offerText::noEffect);
}

std::string OfferTexts::lastWrite(const OfferAccount& account, std::size_t driver) const
{
    const Reading reading = driver < account.readings.size() ? account.readings[driver] : Reading{};
    if (!reading.asked)
        return reading.held ? filled(texts_(compareText::notAsked), {number(*reading.held)})
                            : texts_(compareText::notRead);
    if (!reading.held)
        return filled(texts_(offerText::notReadBack), {number(*reading.asked)});
    const std::string asked = number(*reading.asked);
    const std::string held = number(*reading.held);
    return asked == held ? filled(texts_(offerText::asAsked), {asked})
                         : filled(texts_(offerText::keptOtherwise), {asked, held});
}

std::string OfferTexts::common(const OfferAccount& account) const
{
    if (account.common > 0)
        return filled(texts_(offerText::common), {valuesIn(account.common, account.commonValues)});
    return account.range == Range{} ? texts_(offerText::nothingCommon)
                                    : filled(texts_(offerText::common), {range(account.range)});
}

std::vector<std::string> OfferTexts::columns() const
{
    return {texts_(offerText::offers), texts_(offerText::effect), texts_(offerText::asked)};
}

std::vector<std::string> OfferTexts::row(const OfferAccount& account, std::size_t driver) const
{
    const DriverOffer& offer = account.drivers.at(driver);
    return {offered(offer), effect(account, offer), lastWrite(account, driver)};
}

} // namespace ko
