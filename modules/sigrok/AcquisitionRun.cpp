#include "modules/sigrok/AcquisitionRun.h"

#include "modules/sigrok/Attempt.h"
#include "modules/sigrok/LatestValues.h"
#include "modules/sigrok/PacketJoiner.h"
#include "modules/sigrok/SampleRates.h"
#include "platform/Counts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace ko::sigrok {

namespace {

std::unique_ptr<Intake> intakeFor(const ArmedDevice& armed, const AcquisitionOrder& order, BlockSink& sink)
{
    const double period = armed.settings.period;
    const auto first = static_cast<std::int64_t>(roundedUp(order.notBefore / period));
    if (!armed.settings.isDynamic)
        return std::make_unique<LatestValues>(armed.channels.size(), period, order.samples, first, sink);
    const std::int64_t pretrigger = armed.settings.trigger ? armed.settings.trigger->pretrigger : 0;
    return std::make_unique<PacketJoiner>(JoinOrder{.channels = armed.channels.size(),
                                                    .period = period,
                                                    .samples = order.samples,
                                                    .first = first,
                                                    .awaitsTrigger = order.onTrigger,
                                                    .pretrigger = pretrigger,
                                                    .patience = order.patience},
                                          sink);
}

/// How often a session calls when the device is silent: for each scan, within bounds.
std::chrono::milliseconds intervalFor(const ArmedSettings& settings)
{
    const double milliseconds = settings.isDynamic ? 100.0 : settings.period * 1000.0;
    return std::chrono::milliseconds(std::llround(std::clamp(milliseconds, 5.0, 100.0)));
}

std::optional<Session::Trigger> triggerFor(const ArmedDevice& armed, const AcquisitionOrder& order)
{
    if (order.onTrigger && !armed.trigger)
        throw Failure(failure::unspecified, "no channel is the trigger source");
    return order.onTrigger ? armed.trigger : std::nullopt;
}

} // namespace

AcquisitionRun::AcquisitionRun(std::shared_ptr<Device> device, ArmedDevice armed, const AcquisitionOrder& order,
                               BlockSink& sink, std::shared_ptr<Units> units)
    : device_(std::move(device)), armed_(std::move(armed)), order_(order), sink_(sink), units_(std::move(units)),
      intake_(intakeFor(armed_, order, sink_)), measured_(armed_.channels.size()),
      session_(*device_, triggerFor(armed_, order), *this, intervalFor(armed_.settings))
{
}

void AcquisitionRun::start()
{
    begun_ = now();
    session_.start();
}

bool AcquisitionRun::stopWithin(std::chrono::milliseconds time)
{
    session_.requestStop();
    if (sink_.awaitEnd(time))
        return true;
    sink_.ended(0, "the device does not stop");
    return false;
}

double AcquisitionRun::now() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - order_.origin).count();
}

void AcquisitionRun::stopWhenComplete()
{
    if (intake_->isComplete())
        session_.requestStop();
}

void AcquisitionRun::tick()
{
    intake_->advance(now());
    stopWhenComplete();
}

void AcquisitionRun::take(const sr_datafeed_packet& packet)
{
    if (intake_->isComplete() || frames_ > 1)
        return;
    intake_->advance(now());
    switch (packet.type) {
    case SR_DF_LOGIC: takeLogic(*static_cast<const sr_datafeed_logic*>(packet.payload)); break;
    case SR_DF_ANALOG: takeAnalog(*static_cast<const sr_datafeed_analog*>(packet.payload)); break;
    case SR_DF_TRIGGER: intake_->trigger(now()); break;
    case SR_DF_META: takeMeta(*static_cast<const sr_datafeed_meta*>(packet.payload)); break;
    case SR_DF_FRAME_BEGIN: takeFrame(); break;
    default: return;
    }
    intake_->advance(now());
    stopWhenComplete();
}

/// Devices that learn their sample rate late announce it so.
void AcquisitionRun::takeMeta(const sr_datafeed_meta& meta) const
{
    for (const GSList* it = meta.config; it; it = it->next) {
        const auto& config = *static_cast<const sr_config*>(it->data);
        if (config.key == SR_CONF_SAMPLERATE && g_variant_is_of_type(config.data, G_VARIANT_TYPE_UINT64))
            checkRate(g_variant_get_uint64(config.data), armed_.settings.period);
    }
}

/// The time between two frames of an oscilloscope is not known, so that only the first one is taken.
void AcquisitionRun::takeFrame()
{
    if (armed_.settings.isDynamic && ++frames_ > 1)
        session_.requestStop();
}

void AcquisitionRun::takeLogic(const sr_datafeed_logic& logic)
{
    if (logic.unitsize == 0)
        return;
    const auto* const bytes = static_cast<const std::uint8_t*>(logic.data);
    samples_.resize(logic.length / logic.unitsize);
    for (std::size_t place = 0; place < armed_.channels.size(); ++place) {
        const sr_channel& channel = *armed_.channels[place];
        const auto byte = static_cast<std::size_t>(channel.index) / 8;
        const auto bit = static_cast<unsigned>(channel.index) % 8U;
        if (channel.type != SR_CHANNEL_LOGIC || byte >= logic.unitsize)
            continue;
        for (std::size_t i = 0; i < samples_.size(); ++i)
            samples_[i] = ((bytes[i * logic.unitsize + byte] >> bit) & 1U) != 0 ? 1.0F : 0.0F;
        intake_->append(place, samples_);
    }
}

std::optional<std::size_t> AcquisitionRun::placeOf(const void* channel) const
{
    const auto found = std::find(armed_.channels.begin(), armed_.channels.end(), channel);
    if (found == armed_.channels.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - armed_.channels.begin());
}

void AcquisitionRun::takeAnalog(const sr_datafeed_analog& analog)
{
    const std::size_t channels = g_slist_length(analog.meaning->channels);
    all_.resize(channels * analog.num_samples);
    attempt("samples", [&] { return sr_analog_to_float(&analog, all_.data()); });
    samples_.resize(analog.num_samples);
    std::size_t column = 0;
    for (const GSList* it = analog.meaning->channels; it; it = it->next, ++column)
        if (const auto place = placeOf(it->data)) {
            takeUnit(*place, analog);
            for (std::size_t i = 0; i < samples_.size(); ++i)
                samples_[i] = all_[i * channels + column];
            intake_->append(*place, samples_);
        }
}

/// A channel that measures something else than its unit says ends the acquisition; the next one has the other unit.
void AcquisitionRun::takeUnit(std::size_t place, const sr_datafeed_analog& analog)
{
    if (measured_[place] == analog.meaning->unit)
        return;
    measured_[place] = analog.meaning->unit;
    ArmedChannel& channel = armed_.settings.channels[place];
    const std::string unit = unitText(analog.meaning->unit);
    units_->set(channel.address, unit);
    if (!channel.unit.empty() && channel.unit != unit)
        throw Failure(failure::unspecified,
                      "channel " + channel.name + " measures \"" + unit + "\", not \"" + channel.unit + "\"");
    channel.unit = unit;
}

/// A device that has waited for its trigger for the ordered samples begins again. One that has ended at once is lost.
bool AcquisitionRun::goesOn()
{
    const double wait = 0.5 * static_cast<double>(order_.samples) * armed_.settings.period;
    const double begun = std::exchange(begun_, now());
    return begun_ - begun >= wait && intake_->beginsAgain();
}

std::string AcquisitionRun::reasonOf(const SessionEnd& end) const
{
    if (!end.failure.empty())
        return end.failure;
    const bool isExpected = session_.isStopping() || intake_->isComplete() || frames_ > 1;
    if (isExpected || (end.reported.empty() && intake_->mayEnd()))
        return {};
    return "the device has ended the acquisition" + (end.reported.empty() ? "" : ": " + end.reported);
}

void AcquisitionRun::over(const SessionEnd& end)
{
    SessionEnd last = end;
    try {
        intake_->finish();
    } catch (const std::exception& error) {
        last.failure = error.what();
    }
    sink_.ended(intake_->next(), reasonOf(last));
}

} // namespace ko::sigrok
