#include "modules/sigrok/DeviceSettings.h"

#include "modules/sigrok/Triggering.h"
#include "modules/sigrok/Units.h"

#include <algorithm>

namespace ko::sigrok {

namespace {

std::vector<std::uint64_t> numbersIn(GVariant* values)
{
    std::vector<std::uint64_t> numbers;
    if (values && g_variant_is_of_type(values, G_VARIANT_TYPE("at")))
        for (gsize i = 0; i < g_variant_n_children(values); ++i)
            numbers.push_back(g_variant_get_uint64(Variant(g_variant_get_child_value(values, i)).get()));
    return numbers;
}

std::vector<std::uint64_t> numbersOf(GVariant* dictionary, const char* key)
{
    const bool isDictionary = dictionary && g_variant_is_of_type(dictionary, G_VARIANT_TYPE_VARDICT);
    const Variant values(isDictionary ? g_variant_lookup_value(dictionary, key, nullptr) : nullptr);
    return numbersIn(values.get());
}

/// The unit of a measured quantity that has only one.
std::optional<sr_unit> unitOf(std::uint32_t quantity)
{
    switch (quantity) {
    case SR_MQ_VOLTAGE: return SR_UNIT_VOLT;
    case SR_MQ_CURRENT: return SR_UNIT_AMPERE;
    case SR_MQ_RESISTANCE: return SR_UNIT_OHM;
    case SR_MQ_CAPACITANCE: return SR_UNIT_FARAD;
    case SR_MQ_FREQUENCY: return SR_UNIT_HERTZ;
    case SR_MQ_TIME: return SR_UNIT_SECOND;
    default: return std::nullopt;
    }
}

/// The unit before the channel has measured: that of the quantity that its group is set to measure. Without such a
/// setting oscilloscopes measure volts.
std::string firstUnit(const Device& device, const sr_channel& channel)
{
    std::optional<sr_unit> unit;
    if (channel.type == SR_CHANNEL_ANALOG && device.isA(SR_CONF_OSCILLOSCOPE))
        unit = SR_UNIT_VOLT;
    for (sr_channel_group* const group : device.settingGroups()) {
        const bool isIn = g_slist_find(group->channels, &channel) != nullptr;
        const Variant quantity = isIn ? device.value(SR_CONF_MEASURED_QUANTITY, group) : nullptr;
        if (!quantity || !g_variant_is_of_type(quantity.get(), G_VARIANT_TYPE("(ut)")))
            continue;
        const Variant number(g_variant_get_child_value(quantity.get(), 0));
        unit = unitOf(g_variant_get_uint32(number.get()));
    }
    return unit ? unitText(*unit) : "";
}

ChannelSettings channelSettings(const Device& device, const sr_channel& channel, const TriggerOffer& offer,
                                const std::string& address)
{
    const bool isLogic = channel.type == SR_CHANNEL_LOGIC;
    ChannelSettings settings;
    settings.address = address;
    settings.name = utf8(channel.name);
    settings.enabled = std::int32_t{channel.enabled != FALSE ? 1 : 0};
    settings.triggerParameters = triggerParametersOf(offer, isLogic);
    settings.canTrigger = !settings.triggerParameters.empty();
    settings.unit = firstUnit(device, channel);
    return settings;
}

std::vector<GroupSettings> groupSettings(const Device& device, const TriggerOffer& offer)
{
    std::vector<GroupSettings> groups;
    for (const ChannelGroup& group : device.groups()) {
        const std::string number = std::to_string(groups.size() + 1) + ":";
        GroupSettings& settings = groups.emplace_back(GroupSettings{group.name, {}});
        for (const sr_channel* const channel : group.channels)
            settings.channels.push_back(
                channelSettings(device, *channel, offer, number + std::to_string(settings.channels.size())));
    }
    return groups;
}

TimebaseSettings timebaseOf(const Device& device, const std::optional<SampleRates>& rates)
{
    TimebaseSettings timebase;
    if (rates)
        timebase.samplePeriod = rates->samplePeriod(device.number(SR_CONF_SAMPLERATE).value_or(0));
    timebase.blockSize.range = {1.0, 1048576.0};
    timebase.scanPeriod = {.value = 1.0, .choices = {}, .range = {0.01, 86400.0}, .keeps = {}};
    return timebase;
}

} // namespace

std::optional<SampleRates> sampleRatesOf(const Device& device)
{
    const auto keys = device.keys();
    if (std::find(keys.begin(), keys.end(), SR_CONF_SAMPLERATE) == keys.end())
        return std::nullopt;
    SampleRates rates;
    const Variant offered = device.list(SR_CONF_SAMPLERATE);
    rates.list = numbersOf(offered.get(), "samplerates");
    std::erase(rates.list, 0U);
    const auto steps = numbersOf(offered.get(), "samplerate-steps");
    if (steps.size() == 3 && steps[0] > 0 && steps[1] >= steps[0] && steps[2] > 0)
        rates = {{}, steps[0], steps[1], steps[2]};
    if (!device.can(SR_CONF_SET, SR_CONF_SAMPLERATE))
        rates = {{device.number(SR_CONF_SAMPLERATE).value_or(1)}, 0, 0, 1};
    return rates;
}

InstrumentSettings settingsOf(const Device& device, const Options& options, const std::optional<SampleRates>& rates)
{
    const TriggerOffer offer = triggerOfferOf(device);
    InstrumentSettings settings;
    settings.name = device.title();
    settings.options = options.present();
    settings.measurementMode = rates ? 1 : 2;
    settings.samplingMode = rates ? 1 : 2;
    settings.groups = groupSettings(device, offer);
    settings.timebase = timebaseOf(device, rates);
    settings.hasTriggerParameters = !offer.matches.empty();
    // The lowest rank: it starts recordings by its own trigger, unless an instrument with trigger lines can.
    if (settings.hasTriggerParameters)
        settings.triggerLines.emplace().startMasterRank = 1;
    return settings;
}

} // namespace ko::sigrok
