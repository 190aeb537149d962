#include "modules/sigrok/SigrokAcquisition.h"

#include "host/instruments/KeptInstrument.h"
#include "platform/Counts.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <cmath>
#include <thread>

namespace ko::sigrok {

namespace {

const ChannelSettings& settingsAt(const InstrumentSettings& settings, std::int32_t group, std::int32_t channel)
{
    return settings.groups[static_cast<std::size_t>(group)].channels[static_cast<std::size_t>(channel)];
}

constexpr double mostOrdered = 2e9; // samples that a host can order

/// The samples that the host will order: whole blocks for the duration.
double samplesFor(const ArmedSettings& settings)
{
    const double samples = std::max(widen(settings.duration) / settings.period, 0.0);
    return samples < mostOrdered ? std::round(wholeBlocks(samples, static_cast<std::int32_t>(settings.blockSize)))
                                 : samples;
}

} // namespace

SigrokAcquisition::SigrokAcquisition(std::shared_ptr<Device> device, Options& options,
                                     const std::optional<SampleRates>& rates, const InstrumentSettings& held)
    : device_(std::move(device)), options_(options), rates_(rates), held_(held)
{
}

ArmedSettings SigrokAcquisition::settingsToArm() const
{
    ArmedSettings settings = armedSettings(held_);
    for (ArmedChannel& channel : settings.channels)
        channel.unit = units_->of(channel.address).value_or(channel.unit);
    if (settings.trigger) {
        const auto ratio = captureRatioOf(settingsAt(held_, settings.trigger->group, settings.trigger->channel));
        const double samples = samplesFor(settings) * std::clamp(ratio.value_or(0), 0, 100) / 100.0;
        settings.trigger->pretrigger =
            std::isfinite(samples) ? static_cast<std::int64_t>(std::min(samples, mostOrdered)) : 0;
    }
    return settings;
}

sr_channel* SigrokAcquisition::channelAt(std::int32_t group, std::int32_t channel) const
{
    return device_->groups()[static_cast<std::size_t>(group)].channels[static_cast<std::size_t>(channel)];
}

ArmedDevice SigrokAcquisition::armedDevice() const
{
    ArmedDevice armed{settingsToArm(), {}, {}};
    for (const ArmedChannel& channel : armed.settings.channels)
        armed.channels.push_back(channelAt(channel.group, channel.channel));
    if (const auto& trigger = armed.settings.trigger; trigger && armed.settings.startMode == startMode::onTrigger)
        armed.trigger = {channelAt(trigger->group, trigger->channel),
                         triggerMatchOf(settingsAt(held_, trigger->group, trigger->channel))};
    return armed;
}

void SigrokAcquisition::setChannels(const ArmedDevice& armed)
{
    for (const ChannelGroup& group : device_->groups())
        for (sr_channel* const channel : group.channels) {
            const auto& all = armed.channels;
            const bool isRecorded = std::find(all.begin(), all.end(), channel) != all.end();
            device_->enable(channel, isRecorded || (armed.trigger && armed.trigger->channel == channel));
        }
}

void SigrokAcquisition::setSampleRate(double period)
{
    const std::uint64_t rate = rates_->nearest(period);
    checkRate(rate, period);
    device_->setNumber(SR_CONF_SAMPLERATE, rate, "sample rate", " Hz");
}

ArmedSettings SigrokAcquisition::arm()
{
    if (run_)
        throw Failure(failure::unspecified, "is acquiring");
    if (isStuck_)
        throw Failure(failure::unspecified, "the device has not stopped since its last acquisition");
    armed_.reset();
    ArmedDevice armed = armedDevice();
    options_.set(held_.options);
    setChannels(armed);
    if (rates_)
        setSampleRate(armed.settings.period);
    if (armed.trigger) {
        const ArmedTrigger& trigger = *armed.settings.trigger;
        if (const auto ratio = captureRatioOf(settingsAt(held_, trigger.group, trigger.channel)))
            device_->setNumber(SR_CONF_CAPTURE_RATIO, static_cast<std::uint64_t>(*ratio), "capture ratio", " %");
    }
    device_->commit();
    return armed_.emplace(std::move(armed)).settings;
}

/// A device may round the limit up, but not down.
void SigrokAcquisition::limitSamples(std::int64_t samples)
{
    // Drivers compute with the limit, so the order of samples without an end is one that lasts for days.
    constexpr std::int64_t endless = 1'000'000'000'000;
    const auto limit = static_cast<std::uint64_t>(std::min(samples, endless));
    if (!rates_ || !device_->can(SR_CONF_SET, SR_CONF_LIMIT_SAMPLES))
        return;
    const std::string doing = "sample limit: " + std::to_string(limit);
    device_->set(SR_CONF_LIMIT_SAMPLES, owned(g_variant_new_uint64(limit)).get(), doing);
    if (const auto kept = device_->number(SR_CONF_LIMIT_SAMPLES); samples < endless && kept && *kept < limit)
        throw Failure(failure::unspecified, doing + " set, " + std::to_string(*kept) + " kept");
}

void SigrokAcquisition::start(const AcquisitionOrder& order, BlockSink& sink)
{
    if (!armed_)
        throw Failure(failure::unspecified, "is not armed");
    ArmedDevice armed = std::move(*armed_);
    armed_.reset();
    limitSamples(order.samples);
    auto run = std::make_unique<AcquisitionRun>(device_, std::move(armed), order, sink, units_);
    run->start();
    run_ = std::move(run);
}

/// A device that does not stop is left to a thread, which closes it if it stops later.
void SigrokAcquisition::stop()
{
    armed_.reset();
    if (run_ && !run_->stopWithin(device_->stopTime())) {
        isStuck_ = true;
        std::thread([run = std::move(run_)]() mutable { run.reset(); }).detach();
    }
    run_.reset();
}

} // namespace ko::sigrok
