#include "host/instruments/KeptInstrument.h"

#include "platform/Counts.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <limits>

namespace ko {

namespace {

double countEnabled(const std::vector<GroupSettings>& groups)
{
    std::ptrdiff_t count = 0;
    for (const GroupSettings& group : groups)
        count += std::count_if(group.channels.begin(), group.channels.end(),
                               [](const ChannelSettings& channel) { return channel.isEnabled(); });
    return static_cast<double>(count);
}

Value attributeOf(const ChannelSettings& channel, std::int32_t number)
{
    switch (number) {
    case attribute::address: return channel.address;
    case attribute::enabled: return channel.enabled;
    case attribute::name: return channel.name;
    default: fail(failure::invalidCall);
    }
}

std::int32_t scansOf(const TimebaseSettings& timebase)
{
    const double scans = scansIn(widen(timebase.duration), timebase.scanPeriod.value);
    using Limits = std::numeric_limits<std::int32_t>;
    if (!(scans >= static_cast<double>(Limits::min()) && scans <= static_cast<double>(Limits::max())))
        fail(failure::overflow);
    return static_cast<std::int32_t>(scans);
}

double samplesOf(const TimebaseSettings& timebase)
{
    if (timebase.samplePeriod.value == 0.0)
        fail(failure::divisionByZero);
    return samplesIn(widen(timebase.duration), timebase.samplePeriod.value, timebase.blockSize.value);
}

} // namespace

KeptInstrument::KeptInstrument(InstrumentSettings settings) : settings_(std::move(settings))
{
    if (settings_.timebase)
        timebase_.emplace(*settings_.timebase, [this](double requested) { return keptSamplePeriod(requested); });
    if (settings_.hasTriggerParameters)
        parameters_.emplace(settings_.groups);
    if (settings_.triggerLines)
        lines_.emplace(*settings_.triggerLines);
}

bool haveSameViews(const InstrumentSettings& one, const InstrumentSettings& other)
{
    return one.timebase.has_value() == other.timebase.has_value() &&
           one.triggerLines.has_value() == other.triggerLines.has_value() &&
           one.hasTriggerParameters == other.hasTriggerParameters;
}

void KeptInstrument::restore(const InstrumentSettings& settings)
{
    if (!haveSameViews(settings_, settings))
        fail(failure::invalidCall);
    auto failing = std::move(settings_.failing);
    settings_ = settings;
    settings_.failing = std::move(failing);
}

double KeptInstrument::keptSamplePeriod(double requested)
{
    return settings_.timebase->samplePeriod.request(requested);
}

std::int32_t KeptInstrument::GroupCount()
{
    return static_cast<std::int32_t>(settings_.groups.size());
}

std::int32_t KeptInstrument::ChannelCount(std::int32_t group)
{
    return static_cast<std::int32_t>(elementAt(settings_.groups, group).channels.size());
}

Value KeptInstrument::ChannelAttribute(std::int32_t group, std::int32_t channel, std::int32_t attribute)
{
    return attributeOf(elementAt(elementAt(settings_.groups, group).channels, channel), attribute);
}

std::string KeptInstrument::GroupName(std::int32_t group)
{
    return elementAt(settings_.groups, group).name;
}

std::int32_t KeptInstrument::NumberOfScans()
{
    if (settings_.numberOfScans)
        return *settings_.numberOfScans;
    return scansOf(required(settings_.timebase ? &*settings_.timebase : nullptr));
}

double KeptInstrument::DynamicBytes()
{
    if (settings_.dynamicBytes)
        return *settings_.dynamicBytes;
    const double samples = samplesOf(required(settings_.timebase ? &*settings_.timebase : nullptr));
    return 4.0 * countEnabled(settings_.groups) * samples + 416.0;
}

} // namespace ko
