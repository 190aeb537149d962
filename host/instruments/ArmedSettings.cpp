#include "host/instruments/KeptInstrument.h"
#include "host/instruments/ParameterTypes.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

const ParameterSettings* parameterOf(const ChannelSettings& channel, std::string_view role)
{
    const auto& parameters = channel.triggerParameters;
    const auto found =
        std::find_if(parameters.begin(), parameters.end(), [&](const auto& p) { return p.role == role; });
    return found == parameters.end() ? nullptr : &*found;
}

double numberIn(const ChannelSettings& channel, std::string_view role)
{
    const ParameterSettings* const parameter = parameterOf(channel, role);
    return parameter ? numberOf(parameter->value).value_or(0.0) : 0.0;
}

Slope slopeOf(const ChannelSettings& channel)
{
    const ParameterSettings* const parameter = parameterOf(channel, parameterRole::slope);
    const auto* const text = parameter ? std::get_if<std::string>(&parameter->value) : nullptr;
    if (text && text->starts_with("Falling"))
        return Slope::Falling;
    return text && text->starts_with("Either") ? Slope::Either : Slope::Rising;
}

constexpr double mostPretrigger = 2147483647.0;

ArmedTrigger triggerOf(const ChannelSettings& channel, std::int32_t group, std::int32_t index)
{
    const double samples = std::clamp(numberIn(channel, parameterRole::pretrigger), 0.0, mostPretrigger);
    return {.group = group,
            .channel = index,
            .level = numberIn(channel, parameterRole::level),
            .slope = slopeOf(channel),
            .pretrigger = std::llround(samples)};
}

void takeTimebase(ArmedSettings& armed, const TimebaseSettings& timebase)
{
    armed.period = armed.isDynamic ? timebase.samplePeriod.value : timebase.scanPeriod.value;
    armed.blockSize = armed.isDynamic ? std::max(toLong(timebase.blockSize.value), 1) : 1;
    armed.duration = timebase.duration;
    armed.startMode = timebase.startMode;
    armed.stopMode = timebase.stopMode;
    armed.startTime = timebase.startTime;
}

} // namespace

ArmedSettings armedSettings(const InstrumentSettings& settings)
{
    ArmedSettings armed;
    armed.isDynamic = settings.measurementMode == 1 && settings.samplingMode == 1;
    takeTimebase(armed, required(settings.timebase ? &*settings.timebase : nullptr));
    if (settings.triggerLines) {
        armed.startMasterRank = settings.triggerLines->startMasterRank;
        armed.startTriggerLine = settings.triggerLines->startTriggerLine;
        armed.startTriggerInput = settings.triggerLines->startTriggerInput;
    }
    forEachChannel(settings, [&](const ChannelSettings& it, std::int32_t group, std::int32_t channel) {
        if (it.isEnabled())
            armed.channels.push_back({group, channel, it.address, it.name, it.unit.value_or("V"), it.range});
        if (it.triggerSource && !armed.trigger && settings.hasTriggerParameters)
            armed.trigger = triggerOf(it, group, channel);
    });
    return armed;
}

} // namespace ko
