#include "host/instruments/SimulatedViews.h"

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

ChannelSettings& SimulatedTriggerParameters::channelAt(std::int32_t slot, std::int32_t channel) const
{
    return elementAt(elementAt(groups_, slot).channels, channel);
}

ParameterSettings& SimulatedTriggerParameters::parameter(std::int32_t slot, std::int32_t channel, std::int32_t id) const
{
    auto& parameters = channelAt(slot, channel).triggerParameters;
    const auto found =
        std::find_if(parameters.begin(), parameters.end(), [&](const ParameterSettings& p) { return p.id == id; });
    if (found == parameters.end())
        fail(failure::invalidCall);
    return *found;
}

std::int32_t SimulatedTriggerParameters::GetTriggerParamCount(std::int32_t slot, std::int32_t channel)
{
    return calls_.read(Operation::GetTriggerParamCount, {slot, channel},
                       [&] { return static_cast<std::int32_t>(channelAt(slot, channel).triggerParameters.size()); });
}

std::int32_t SimulatedTriggerParameters::GetTriggerParamId(std::int32_t slot, std::int32_t channel, std::int32_t index)
{
    return calls_.read(Operation::GetTriggerParamId, {slot, channel, index},
                       [&] { return elementAt(channelAt(slot, channel).triggerParameters, index).id; });
}

std::string SimulatedTriggerParameters::GetTriggerParamName(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return calls_.read(Operation::GetTriggerParamName, {slot, channel, id},
                       [&] { return parameter(slot, channel, id).name; });
}

std::string SimulatedTriggerParameters::GetTriggerParamType(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return calls_.read(Operation::GetTriggerParamType, {slot, channel, id},
                       [&] { return parameter(slot, channel, id).type; });
}

Value SimulatedTriggerParameters::GetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return calls_.read(Operation::GetTriggerParamValue, {slot, channel, id},
                       [&] { return parameter(slot, channel, id).value; });
}

std::vector<std::string> SimulatedTriggerParameters::GetTriggerParamChoices(std::int32_t slot, std::int32_t channel,
                                                                            std::int32_t id)
{
    return calls_.read(Operation::GetTriggerParamChoices, {slot, channel, id}, [&] {
        const ParameterSettings& asked = parameter(slot, channel, id);
        if (asked.type != "Enum")
            fail(failure::invalidCall);
        return asked.choices;
    });
}

double SimulatedTriggerParameters::GetTriggerParamMin(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return calls_.read(Operation::GetTriggerParamMin, {slot, channel, id}, [&] {
        const ParameterSettings& asked = parameter(slot, channel, id);
        return bound(asked, asked.minimum, std::numeric_limits<double>::lowest(),
                     std::numeric_limits<std::int32_t>::min());
    });
}

double SimulatedTriggerParameters::GetTriggerParamMax(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return calls_.read(Operation::GetTriggerParamMax, {slot, channel, id}, [&] {
        const ParameterSettings& asked = parameter(slot, channel, id);
        return bound(asked, asked.maximum, std::numeric_limits<double>::max(),
                     std::numeric_limits<std::int32_t>::max());
    });
}

void SimulatedTriggerParameters::SetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id,
                                                      const Value& value)
{
    calls_.write(Operation::SetTriggerParamValue, {slot, channel, id}, value, [&] {
        ParameterSettings& asked = parameter(slot, channel, id);
        const std::optional<Value> kept = fitted(value, asked.type);
        if (!kept)
            fail(failure::typeMismatch);
        return asked.value = *kept;
    });
}

bool SimulatedTriggerParameters::TriggerEnabled(std::int32_t slot, std::int32_t channel)
{
    return calls_.read(Operation::TriggerEnabledGet, {slot, channel},
                       [&] { return channelAt(slot, channel).triggerSource; });
}

void SimulatedTriggerParameters::setTriggerEnabled(std::int32_t slot, std::int32_t channel, bool enabled)
{
    calls_.write(Operation::TriggerEnabledSet, {slot, channel}, enabled,
                 [&] { return channelAt(slot, channel).triggerSource = enabled; });
}

bool SimulatedTriggerParameters::CanTrigger(std::int32_t slot, std::int32_t channel)
{
    return calls_.read(Operation::CanTrigger, {slot, channel}, [&] { return channelAt(slot, channel).canTrigger; });
}

std::string SimulatedTriggerParameters::GetTriggerGroupName(std::int32_t slot)
{
    return calls_.read(Operation::GetTriggerGroupName, {slot}, [&] { return elementAt(groups_, slot).name; });
}

std::int32_t SimulatedTriggerLines::StartMasterRank()
{
    return get(Operation::StartMasterRank, settings_.startMasterRank);
}

std::int32_t SimulatedTriggerLines::StartTriggerLine()
{
    return get(Operation::StartTriggerLineGet, settings_.startTriggerLine);
}

void SimulatedTriggerLines::setStartTriggerLine(std::int32_t line)
{
    set(Operation::StartTriggerLineSet, settings_.startTriggerLine, line);
}

void SimulatedTriggerLines::setStartTriggerInput(std::int32_t line)
{
    set(Operation::StartTriggerInput, settings_.startTriggerInput, line);
}

std::int32_t SimulatedTriggerLines::ScanMasterRank()
{
    return get(Operation::ScanMasterRank, settings_.scanMasterRank);
}

std::int32_t SimulatedTriggerLines::ScanTriggerLine()
{
    return get(Operation::ScanTriggerLineGet, settings_.scanTriggerLine);
}

void SimulatedTriggerLines::setScanTriggerLine(std::int32_t line)
{
    set(Operation::ScanTriggerLineSet, settings_.scanTriggerLine, line);
}

void SimulatedTriggerLines::setScanTriggerInput(std::int32_t line)
{
    set(Operation::ScanTriggerInput, settings_.scanTriggerInput, line);
}

LineList SimulatedTriggerLines::StartLinesAsMaster()
{
    return get(Operation::StartLinesAsMaster, settings_.startLinesAsMaster);
}

LineList SimulatedTriggerLines::ScanLinesAsListener()
{
    return get(Operation::ScanLinesAsListener, settings_.scanLinesAsListener);
}

LineList SimulatedTriggerLines::ScanLinesAsMaster()
{
    return get(Operation::ScanLinesAsMaster, settings_.scanLinesAsMaster);
}

LineList SimulatedTriggerLines::StartLinesAsListener()
{
    return get(Operation::StartLinesAsListener, settings_.startLinesAsListener);
}

} // namespace ko
