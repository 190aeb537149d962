#include "host/instruments/DeviceInstrument.h"

#include "host/instruments/ForeignCall.h"

#include <algorithm>

namespace ko {

namespace {

[[noreturn]] void lacks(const std::string& what)
{
    throw Failure(failure::unspecified, "has no " + what + ", which the set-up sets");
}

void takeValues(TimebaseSettings& offered, const TimebaseSettings& kept)
{
    offered.samplePeriod.value = kept.samplePeriod.value;
    offered.blockSize.value = kept.blockSize.value;
    offered.scanPeriod.value = kept.scanPeriod.value;
    offered.startTime = kept.startTime;
    offered.duration = kept.duration;
    offered.stopMode = kept.stopMode;
    offered.startMode = kept.startMode;
}

void takeValues(TriggerLineSettings& offered, const TriggerLineSettings& kept)
{
    offered.startTriggerLine = kept.startTriggerLine;
    offered.startTriggerInput = kept.startTriggerInput;
    offered.scanTriggerLine = kept.scanTriggerLine;
    offered.scanTriggerInput = kept.scanTriggerInput;
}

void takeValues(ChannelSettings& offered, const ChannelSettings& kept)
{
    if (!kept.name.empty())
        offered.name = kept.name;
    offered.enabled = kept.enabled;
    offered.triggerSource = kept.triggerSource;
    for (const ParameterSettings& parameter : kept.triggerParameters) {
        auto& all = offered.triggerParameters;
        auto found = std::find_if(all.begin(), all.end(), [&](const auto& it) { return it.id == parameter.id; });
        // Another version of the module may number its parameters otherwise.
        if (found == all.end())
            found = std::find_if(all.begin(), all.end(), [&](const auto& it) { return it.name == parameter.name; });
        if (found == all.end())
            lacks("trigger parameter \"" + parameter.name + "\" of channel " + kept.address);
        found->value = parameter.value;
    }
}

ChannelSettings& channelOf(InstrumentSettings& offered, const std::string& address)
{
    for (GroupSettings& group : offered.groups)
        for (ChannelSettings& channel : group.channels)
            if (channel.address == address)
                return channel;
    lacks("channel " + address);
}

/// Asks once for all that the page will ask for, so that a device that cannot answer is not opened.
void askForViews(Instrument& device)
{
    Driver& driver = device.driver();
    driver.queryTimebase();
    driver.queryTriggerParameters();
    driver.queryTriggerLines();
    driver.queryStaticMeasurement();
    driver.queryDynamicMeasurement();
    static_cast<void>(device.acquisition());
}

} // namespace

InstrumentSettings withValues(InstrumentSettings offered, const InstrumentSettings& kept)
{
    if (kept.timebase && !offered.timebase)
        lacks("timebase");
    if (kept.timebase)
        takeValues(*offered.timebase, *kept.timebase);
    if (kept.triggerLines && !offered.triggerLines)
        lacks("trigger lines");
    if (kept.triggerLines)
        takeValues(*offered.triggerLines, *kept.triggerLines);
    forEachChannel(kept, [&](const ChannelSettings& channel, std::int32_t, std::int32_t) {
        takeValues(channelOf(offered, channel.address), channel);
    });
    return offered;
}

DeviceInstrument::DeviceInstrument(InstrumentSettings settings, std::shared_ptr<DeviceSource> source)
    : source_(std::move(source)),
      acquisition_([this]() -> Acquisition& { return armable(); }, [this] { return settingsToArm(); })
{
    keep(std::move(settings));
}

InstrumentSettings DeviceInstrument::withHostsPart(InstrumentSettings settings) const
{
    settings.name = held_.name;
    settings.module = held_.module;
    settings.device = held_.device;
    settings.failing = held_.failing;
    return settings;
}

void DeviceInstrument::open()
{
    isWanted_ = true;
    if (!device_)
        attempt();
}

void DeviceInstrument::reopen()
{
    if (acquisition_.isInUse())
        return;
    keep(held());
    open();
}

void DeviceInstrument::close()
{
    if (acquisition_.isInUse())
        return;
    isWanted_ = false;
    keep(held());
}

void DeviceInstrument::attempt()
{
    try {
        foreignCall([&] {
            if (!source_)
                throw Failure(failure::unspecified, "there are no driver modules");
            auto device = source_->open(held_.module, held_.device, held_.options);
            device->restore(withValues(device->held(), held_));
            askForViews(*device);
            device_ = std::move(device);
        });
        ++timesOpened_;
        seen_.reset();
        trouble_.clear();
        if (exchanged)
            exchanged();
    } catch (const Failure& failure) {
        trouble_ = held_.module + " " + held_.device + ": " + failure.what();
    }
}

void DeviceInstrument::keep(InstrumentSettings settings)
{
    device_.reset();
    held_ = std::move(settings);
    trouble_ = held_.module + " " + held_.device + ": is not open";
    InstrumentSettings asked = held_;
    if (!asked.timebase)
        asked.timebase.emplace();
    standIn_.emplace(std::move(asked));
    if (exchanged)
        exchanged();
}

Driver& DeviceInstrument::driver()
{
    return device_ ? device_->driver() : standIn_->driver();
}

const InstrumentSettings& DeviceInstrument::held() const
{
    if (!device_)
        return held_;
    try {
        foreignCall([&] {
            const InstrumentSettings& now = device_->held();
            if (now == seen_)
                return;
            seen_ = now;
            held_ = withHostsPart(now);
        });
    } catch (const Failure&) {
        // The settings held before are the best that is known.
        return held_;
    }
    return held_;
}

void DeviceInstrument::restore(const InstrumentSettings& settings)
{
    if (device_ && settings.options == held().options) {
        InstrumentSettings wanted = withValues(device_->held(), settings);
        wanted.name = settings.name;
        device_->restore(wanted);
        held_.name = settings.name;
        return;
    }
    if (acquisition_.isInUse())
        throw Failure(failure::unspecified, "is acquiring");
    const bool wasOpen = device_ != nullptr;
    const InstrumentSettings before = held();
    keep(settings);
    if (isWanted_ && settings.options != before.options)
        attempt();
    if (!wasOpen || device_)
        return;
    const std::string reason = trouble_;
    keep(before);
    attempt();
    throw Failure(failure::unspecified, reason);
}

Acquisition& DeviceInstrument::armable()
{
    if (!device_ || acquisition_.isLost())
        reopen();
    if (!device_)
        throw Failure(failure::unspecified, trouble_);
    Acquisition* const acquisition = device_->acquisition();
    if (!acquisition)
        throw Failure(failure::unspecified, "cannot acquire");
    return *acquisition;
}

ArmedSettings DeviceInstrument::settingsToArm()
{
    Acquisition* const acquisition = device_ ? foreignCall([&] { return device_->acquisition(); }) : nullptr;
    return acquisition ? foreignCall([&] { return acquisition->settingsToArm(); }) : armedSettings(held_);
}

} // namespace ko
