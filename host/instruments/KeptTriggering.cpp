#include "host/instruments/KeptViews.h"

#include "host/instruments/ParameterTypes.h"

#include <algorithm>
#include <limits>

namespace ko {

namespace {

double bound(const ParameterSettings& parameter, const std::optional<double>& given, double ofDouble, double ofLong)
{
    if (!isNumericType(parameter.type))
        fail(failure::invalidCall);
    return given.value_or(parameter.type == "Integer" ? ofLong : ofDouble);
}

} // namespace

ChannelSettings& KeptTriggerParameters::channelAt(std::int32_t slot, std::int32_t channel) const
{
    return elementAt(elementAt(groups_, slot).channels, channel);
}

ParameterSettings& KeptTriggerParameters::parameter(std::int32_t slot, std::int32_t channel, std::int32_t id) const
{
    auto& parameters = channelAt(slot, channel).triggerParameters;
    const auto found =
        std::find_if(parameters.begin(), parameters.end(), [&](const ParameterSettings& p) { return p.id == id; });
    if (found == parameters.end())
        fail(failure::invalidCall);
    return *found;
}

std::int32_t KeptTriggerParameters::GetTriggerParamCount(std::int32_t slot, std::int32_t channel)
{
    return static_cast<std::int32_t>(channelAt(slot, channel).triggerParameters.size());
}

std::int32_t KeptTriggerParameters::GetTriggerParamId(std::int32_t slot, std::int32_t channel, std::int32_t index)
{
    return elementAt(channelAt(slot, channel).triggerParameters, index).id;
}

std::string KeptTriggerParameters::GetTriggerParamName(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return parameter(slot, channel, id).name;
}

std::string KeptTriggerParameters::GetTriggerParamType(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return parameter(slot, channel, id).type;
}

Value KeptTriggerParameters::GetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return parameter(slot, channel, id).value;
}

std::vector<std::string> KeptTriggerParameters::GetTriggerParamChoices(std::int32_t slot, std::int32_t channel,
                                                                       std::int32_t id)
{
    const ParameterSettings& asked = parameter(slot, channel, id);
    if (asked.type != "Enum")
        fail(failure::invalidCall);
    return asked.choices;
}

double KeptTriggerParameters::GetTriggerParamMin(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    const ParameterSettings& asked = parameter(slot, channel, id);
    return bound(asked, asked.minimum, std::numeric_limits<double>::lowest(), std::numeric_limits<std::int32_t>::min());
}

double KeptTriggerParameters::GetTriggerParamMax(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    const ParameterSettings& asked = parameter(slot, channel, id);
    return bound(asked, asked.maximum, std::numeric_limits<double>::max(), std::numeric_limits<std::int32_t>::max());
}

void KeptTriggerParameters::SetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id,
                                                 const Value& value)
{
    ParameterSettings& asked = parameter(slot, channel, id);
    const std::optional<Value> kept = fitted(value, asked.type);
    if (!kept)
        fail(failure::typeMismatch);
    asked.value = *kept;
}

bool KeptTriggerParameters::TriggerEnabled(std::int32_t slot, std::int32_t channel)
{
    return channelAt(slot, channel).triggerSource;
}

void KeptTriggerParameters::setTriggerEnabled(std::int32_t slot, std::int32_t channel, bool enabled)
{
    channelAt(slot, channel).triggerSource = enabled;
}

bool KeptTriggerParameters::CanTrigger(std::int32_t slot, std::int32_t channel)
{
    return channelAt(slot, channel).canTrigger;
}

std::string KeptTriggerParameters::GetTriggerGroupName(std::int32_t slot)
{
    return elementAt(groups_, slot).name;
}

std::int32_t KeptTriggerLines::StartMasterRank()
{
    return settings_.startMasterRank;
}

std::int32_t KeptTriggerLines::StartTriggerLine()
{
    return settings_.startTriggerLine;
}

void KeptTriggerLines::setStartTriggerLine(std::int32_t line)
{
    settings_.startTriggerLine = line;
}

void KeptTriggerLines::setStartTriggerInput(std::int32_t line)
{
    settings_.startTriggerInput = line;
}

std::int32_t KeptTriggerLines::ScanMasterRank()
{
    return settings_.scanMasterRank;
}

std::int32_t KeptTriggerLines::ScanTriggerLine()
{
    return settings_.scanTriggerLine;
}

void KeptTriggerLines::setScanTriggerLine(std::int32_t line)
{
    settings_.scanTriggerLine = line;
}

void KeptTriggerLines::setScanTriggerInput(std::int32_t line)
{
    settings_.scanTriggerInput = line;
}

LineList KeptTriggerLines::StartLinesAsMaster()
{
    return settings_.startLinesAsMaster;
}

LineList KeptTriggerLines::ScanLinesAsListener()
{
    return settings_.scanLinesAsListener;
}

LineList KeptTriggerLines::ScanLinesAsMaster()
{
    return settings_.scanLinesAsMaster;
}

LineList KeptTriggerLines::StartLinesAsListener()
{
    return settings_.startLinesAsListener;
}

} // namespace ko
