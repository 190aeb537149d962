#include "host/instruments/GatedViews.h"

namespace ko {

std::int32_t GatedTriggerParameters::GetTriggerParamCount(std::int32_t slot, std::int32_t channel)
{
    return get(Operation::GetTriggerParamCount, &TriggerParameters::GetTriggerParamCount, slot, channel);
}

std::int32_t GatedTriggerParameters::GetTriggerParamId(std::int32_t slot, std::int32_t channel, std::int32_t index)
{
    return get(Operation::GetTriggerParamId, &TriggerParameters::GetTriggerParamId, slot, channel, index);
}

std::string GatedTriggerParameters::GetTriggerParamName(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return get(Operation::GetTriggerParamName, &TriggerParameters::GetTriggerParamName, slot, channel, id);
}

std::string GatedTriggerParameters::GetTriggerParamType(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return get(Operation::GetTriggerParamType, &TriggerParameters::GetTriggerParamType, slot, channel, id);
}

Value GatedTriggerParameters::GetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return get(Operation::GetTriggerParamValue, &TriggerParameters::GetTriggerParamValue, slot, channel, id);
}

std::vector<std::string> GatedTriggerParameters::GetTriggerParamChoices(std::int32_t slot, std::int32_t channel,
                                                                        std::int32_t id)
{
    return get(Operation::GetTriggerParamChoices, &TriggerParameters::GetTriggerParamChoices, slot, channel, id);
}

double GatedTriggerParameters::GetTriggerParamMin(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return get(Operation::GetTriggerParamMin, &TriggerParameters::GetTriggerParamMin, slot, channel, id);
}

double GatedTriggerParameters::GetTriggerParamMax(std::int32_t slot, std::int32_t channel, std::int32_t id)
{
    return get(Operation::GetTriggerParamMax, &TriggerParameters::GetTriggerParamMax, slot, channel, id);
}

void GatedTriggerParameters::SetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id,
                                                  const Value& value)
{
    calls_.write(
        Operation::SetTriggerParamValue, {slot, channel, id}, value,
        [&] { required(view_).SetTriggerParamValue(slot, channel, id, value); },
        [&] { return required(view_).GetTriggerParamValue(slot, channel, id); });
}

bool GatedTriggerParameters::TriggerEnabled(std::int32_t slot, std::int32_t channel)
{
    return get(Operation::TriggerEnabledGet, &TriggerParameters::TriggerEnabled, slot, channel);
}

void GatedTriggerParameters::setTriggerEnabled(std::int32_t slot, std::int32_t channel, bool enabled)
{
    calls_.write(
        Operation::TriggerEnabledSet, {slot, channel}, enabled,
        [&] { required(view_).setTriggerEnabled(slot, channel, enabled); },
        [&] { return required(view_).TriggerEnabled(slot, channel); });
}

bool GatedTriggerParameters::CanTrigger(std::int32_t slot, std::int32_t channel)
{
    return get(Operation::CanTrigger, &TriggerParameters::CanTrigger, slot, channel);
}

std::string GatedTriggerParameters::GetTriggerGroupName(std::int32_t slot)
{
    return get(Operation::GetTriggerGroupName, &TriggerParameters::GetTriggerGroupName, slot);
}

/// A line that cannot be read counts as taken.
void GatedTriggerLines::set(Operation operation, std::int32_t line, Write write, Read read)
{
    calls_.write(
        operation, {}, line, [&] { (required(view_).*write)(line); },
        [&] { return read ? (required(view_).*read)() : line; });
}

std::int32_t GatedTriggerLines::StartMasterRank()
{
    return get(Operation::StartMasterRank, &TriggerLines::StartMasterRank);
}

std::int32_t GatedTriggerLines::StartTriggerLine()
{
    return get(Operation::StartTriggerLineGet, &TriggerLines::StartTriggerLine);
}

void GatedTriggerLines::setStartTriggerLine(std::int32_t line)
{
    set(Operation::StartTriggerLineSet, line, &TriggerLines::setStartTriggerLine, &TriggerLines::StartTriggerLine);
}

void GatedTriggerLines::setStartTriggerInput(std::int32_t line)
{
    set(Operation::StartTriggerInput, line, &TriggerLines::setStartTriggerInput);
}

std::int32_t GatedTriggerLines::ScanMasterRank()
{
    return get(Operation::ScanMasterRank, &TriggerLines::ScanMasterRank);
}

std::int32_t GatedTriggerLines::ScanTriggerLine()
{
    return get(Operation::ScanTriggerLineGet, &TriggerLines::ScanTriggerLine);
}

void GatedTriggerLines::setScanTriggerLine(std::int32_t line)
{
    set(Operation::ScanTriggerLineSet, line, &TriggerLines::setScanTriggerLine, &TriggerLines::ScanTriggerLine);
}

void GatedTriggerLines::setScanTriggerInput(std::int32_t line)
{
    set(Operation::ScanTriggerInput, line, &TriggerLines::setScanTriggerInput);
}

LineList GatedTriggerLines::StartLinesAsMaster()
{
    return get(Operation::StartLinesAsMaster, &TriggerLines::StartLinesAsMaster);
}

LineList GatedTriggerLines::ScanLinesAsListener()
{
    return get(Operation::ScanLinesAsListener, &TriggerLines::ScanLinesAsListener);
}

LineList GatedTriggerLines::ScanLinesAsMaster()
{
    return get(Operation::ScanLinesAsMaster, &TriggerLines::ScanLinesAsMaster);
}

LineList GatedTriggerLines::StartLinesAsListener()
{
    return get(Operation::StartLinesAsListener, &TriggerLines::StartLinesAsListener);
}

} // namespace ko
