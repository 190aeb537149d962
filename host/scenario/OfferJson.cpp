#include "host/scenario/OfferJson.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

const char* effectName(DriverOffer::Effect effect)
{
    switch (effect) {
    case DriverOffer::Effect::Begins: return "begins";
    case DriverOffer::Effect::Removes: return "removes";
    case DriverOffer::Effect::Empties: return "empties";
    case DriverOffer::Effect::Narrows: return "narrows";
    case DriverOffer::Effect::None: break;
    }
    return "none";
}

Json rangeJson(Range range)
{
    return {range.minimum, range.maximum};
}

/// Returns the number and ends of the shared values, or the shared range; null for neither.
Json sharedJson(const OfferAccount& account)
{
    if (account.common > 0)
        return {{"values", account.common}, {"range", rangeJson(account.commonValues)}};
    return account.range == Range{} ? Json() : Json{{"range", rangeJson(account.range)}};
}

Json offerJson(const OfferAccount& account, const DriverOffer& offer)
{
    const auto first = account.removed.begin() + offer.removedFrom;
    Json json{{"effect", effectName(offer.effect)}};
    if (offer.kind == DriverOffer::Kind::NoTimebase)
        json["timebase"] = false;
    if (offer.kind == DriverOffer::Kind::List)
        json["values"] = offer.choices;
    if (offer.kind == DriverOffer::Kind::List || offer.kind == DriverOffer::Kind::Range)
        json["range"] = rangeJson(offer.offered);
    if (offer.removed > 0)
        json["removed"] = std::vector<double>(first, first + offer.removed);
    if (offer.effect == DriverOffer::Effect::Narrows)
        json["shared"] = rangeJson(offer.kept);
    if (offer.unusable > 0)
        json["unusable"] = offer.unusable;
    if (offer.hasFailed)
        json["failed"] = true;
    return json;
}

/// The value asked is added only where the driver holds another one.
void addReading(Json& offer, const Reading& reading)
{
    const Json held = reading.held ? Json(*reading.held) : Json();
    if (reading.held)
        offer["held"] = held;
    if (reading.asked && reading.asked != reading.held)
        offer.update({{"asked", *reading.asked}, {"kept", held}});
}

} // namespace

Json offersJson(const OfferAccount& account, const HostInstruments& drivers)
{
    Json list = Json::array();
    for (std::size_t i = 0; i < account.drivers.size(); ++i) {
        Json offer = offerJson(account, account.drivers[i]);
        offer["name"] = i < drivers.size() ? Json(drivers[i]->settings().name) : Json();
        list.push_back(std::move(offer));
    }
    for (std::size_t i = 0; i < account.readings.size() && i < list.size(); ++i)
        addReading(list.at(i), account.readings[i]);
    return {{"shared", sharedJson(account)}, {"drivers", std::move(list)}};
}

} // namespace ko
