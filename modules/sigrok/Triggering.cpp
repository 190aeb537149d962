#include "modules/sigrok/Triggering.h"

#include "interfaces/InternalParameters.h"

#include <algorithm>
#include <array>

namespace ko::sigrok {

namespace {

struct Match {
    int match = 0;
    std::string_view name;
    bool isForLogic = false, isForAnalog = false;
};

// The names begin as the host knows slopes.
constexpr std::array<Match, 7> matches{{{SR_TRIGGER_RISING, "Rising edge", true, true},
                                        {SR_TRIGGER_FALLING, "Falling edge", true, true},
                                        {SR_TRIGGER_EDGE, "Either edge", true, false},
                                        {SR_TRIGGER_ONE, "High level", true, false},
                                        {SR_TRIGGER_ZERO, "Low level", true, false},
                                        {SR_TRIGGER_OVER, "Above level", false, true},
                                        {SR_TRIGGER_UNDER, "Below level", false, true}}};

namespace parameterId {
constexpr std::int32_t level = 2;
constexpr std::int32_t match = 4;
constexpr std::int32_t captureRatio = 5;
} // namespace parameterId

static_assert(!isInternalParameter(parameterId::level) && !isInternalParameter(parameterId::match) &&
              !isInternalParameter(parameterId::captureRatio));

std::vector<std::string> matchNames(const std::vector<int>& offered, bool isLogic)
{
    const auto has = [&](int match) { return std::find(offered.begin(), offered.end(), match) != offered.end(); };
    std::vector<std::string> names;
    if (isLogic || has(SR_TRIGGER_OVER) || has(SR_TRIGGER_UNDER))
        for (const Match& it : matches)
            if (has(it.match) && (isLogic ? it.isForLogic : it.isForAnalog))
                names.emplace_back(it.name);
    return names;
}

ParameterSettings parameter(std::int32_t id, const char* name, const char* type, Value value)
{
    ParameterSettings made;
    made.id = id;
    made.name = name;
    made.type = type;
    made.value = std::move(value);
    return made;
}

const Value* parameterValue(const ChannelSettings& channel, std::int32_t id)
{
    for (const ParameterSettings& it : channel.triggerParameters)
        if (it.id == id)
            return &it.value;
    return nullptr;
}

} // namespace

TriggerOffer triggerOfferOf(const Device& device)
{
    TriggerOffer offer;
    const Variant list = device.list(SR_CONF_TRIGGER_MATCH);
    if (list && g_variant_is_of_type(list.get(), G_VARIANT_TYPE("ai")))
        for (gsize i = 0; i < g_variant_n_children(list.get()); ++i)
            offer.matches.push_back(g_variant_get_int32(Variant(g_variant_get_child_value(list.get(), i)).get()));
    if (device.can(SR_CONF_SET, SR_CONF_CAPTURE_RATIO))
        offer.captureRatio = device.number(SR_CONF_CAPTURE_RATIO).value_or(0);
    return offer;
}

std::vector<ParameterSettings> triggerParametersOf(const TriggerOffer& offer, bool isLogic)
{
    const auto names = matchNames(offer.matches, isLogic);
    if (names.empty())
        return {};
    std::vector parameters{parameter(parameterId::match, "Match", "Enum", names.front())};
    parameters.back().choices = names;
    parameters.back().role = parameterRole::slope;
    if (!isLogic) {
        parameters.push_back(parameter(parameterId::level, "Level", "Float", 0.0));
        parameters.back().role = parameterRole::level;
    }
    if (offer.captureRatio) {
        const auto percent = static_cast<std::int32_t>(std::min<std::uint64_t>(*offer.captureRatio, 100));
        parameters.push_back(parameter(parameterId::captureRatio, "Capture ratio (%)", "Integer", percent));
        parameters.back().minimum = 0.0;
        parameters.back().maximum = 100.0;
    }
    return parameters;
}

TriggerMatch triggerMatchOf(const ChannelSettings& channel)
{
    const Value* const chosen = parameterValue(channel, parameterId::match);
    const auto* const given = chosen ? std::get_if<std::string>(chosen) : nullptr;
    const std::string name = given ? *given : std::string();
    const auto found = std::find_if(matches.begin(), matches.end(), [&](const Match& it) { return it.name == name; });
    if (found == matches.end())
        throw Failure(failure::unspecified, "channel " + channel.name + " cannot trigger on \"" + name + "\"");
    const Value* const level = parameterValue(channel, parameterId::level);
    const auto* const number = level ? std::get_if<double>(level) : nullptr;
    return {found->match, number ? static_cast<float>(*number) : 0.0F};
}

std::optional<std::int32_t> captureRatioOf(const ChannelSettings& channel)
{
    const Value* const ratio = parameterValue(channel, parameterId::captureRatio);
    const auto* const percent = ratio ? std::get_if<std::int32_t>(ratio) : nullptr;
    return percent ? std::optional(*percent) : std::nullopt;
}

} // namespace ko::sigrok
