#include "host/instruments/SimulatedDriver.h"

#include <algorithm>
#include <cmath>
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
    const double scans = std::floor(static_cast<double>(timebase.duration) / timebase.scanPeriod.value) + 1.0;
    using Limits = std::numeric_limits<std::int32_t>;
    if (!(scans >= static_cast<double>(Limits::min()) && scans <= static_cast<double>(Limits::max())))
        fail(failure::overflow);
    return static_cast<std::int32_t>(scans);
}

double samplesOf(const TimebaseSettings& timebase)
{
    if (timebase.samplePeriod.value == 0.0)
        fail(failure::divisionByZero);
    const double samples = static_cast<double>(timebase.duration) / timebase.samplePeriod.value;
    const double block = timebase.blockSize.value;
    return block < 1.0 ? samples : std::ceil(samples / block) * block;
}

} // namespace

SimulatedDriver::SimulatedDriver(InstrumentSettings settings) : settings_(std::move(settings))
{
    if (settings_.timebase) {
        timebase_.emplace(calls_, *settings_.timebase);
        acquisition_.emplace(settings_);
    }
    if (settings_.hasTriggerParameters)
        parameters_.emplace(calls_, settings_.groups);
    if (settings_.triggerLines)
        lines_.emplace(calls_, *settings_.triggerLines);
    for (const SimulatedFailure& failure : settings_.failing)
        calls_.fail(failure);
}

InstrumentSettings SimulatedDriver::settings() const
{
    InstrumentSettings present = settings_;
    present.failing = calls_.failing();
    return present;
}

void SimulatedDriver::enableChannel(std::int32_t group, std::int32_t channel, bool enabled)
{
    elementAt(elementAt(settings_.groups, group).channels, channel).enabled = std::int32_t{enabled};
}

std::int32_t SimulatedDriver::GroupCount()
{
    return calls_.read(Operation::GroupCount, {}, [&] { return static_cast<std::int32_t>(settings_.groups.size()); });
}

std::int32_t SimulatedDriver::ChannelCount(std::int32_t group)
{
    return calls_.read(Operation::ChannelCount, {group},
                       [&] { return static_cast<std::int32_t>(elementAt(settings_.groups, group).channels.size()); });
}

Value SimulatedDriver::ChannelAttribute(std::int32_t group, std::int32_t channel, std::int32_t attribute)
{
    return calls_.read(Operation::ChannelAttribute, {group, channel, attribute}, [&] {
        return attributeOf(elementAt(elementAt(settings_.groups, group).channels, channel), attribute);
    });
}

std::int32_t SimulatedDriver::MeasurementMode()
{
    return calls_.read(Operation::MeasurementMode, {}, [&] { return settings_.measurementMode; });
}

std::int32_t SimulatedDriver::SamplingMode()
{
    return calls_.read(Operation::SamplingMode, {}, [&] { return settings_.samplingMode; });
}

std::string SimulatedDriver::DriverName(std::int32_t form)
{
    return calls_.read(Operation::DriverName, {form}, [&] { return settings_.name; });
}

std::string SimulatedDriver::GroupName(std::int32_t group)
{
    return calls_.read(Operation::GroupName, {group}, [&] { return elementAt(settings_.groups, group).name; });
}

std::int32_t SimulatedDriver::NumberOfScans()
{
    return calls_.read(Operation::NumberOfScans, {}, [&] {
        if (settings_.numberOfScans)
            return *settings_.numberOfScans;
        return scansOf(required(settings_.timebase ? &*settings_.timebase : nullptr));
    });
}

double SimulatedDriver::DynamicBytes()
{
    return calls_.read(Operation::DynamicBytes, {}, [&] {
        if (settings_.dynamicBytes)
            return *settings_.dynamicBytes;
        const double samples = samplesOf(required(settings_.timebase ? &*settings_.timebase : nullptr));
        return 4.0 * countEnabled(settings_.groups) * samples + 416.0;
    });
}

} // namespace ko
