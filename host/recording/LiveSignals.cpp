#include "host/recording/LiveSignals.h"

#include <algorithm>

namespace ko {

namespace {

/// How finely samples are kept: at least by ten thousandths of a second, unless the period is beyond measure.
std::int64_t finestWidth(double period)
{
    constexpr std::int64_t most = std::int64_t{1} << 40; // which can be multiplied by the number of extents
    std::int64_t width = 1;
    while (width < most && 4.0 * static_cast<double>(width) * period <= 1e-4)
        width *= 4;
    return width;
}

} // namespace

double ChartState::end(const std::vector<ChartChannel>& described) const
{
    double time = 0.0;
    for (std::size_t i = 0; i < channels.size(); ++i)
        time = std::max(time, channels[i].start + static_cast<double>(channels[i].samples) * described[i].period);
    return time;
}

LiveSignals::Signal::Signal(double period) : envelope(finestWidth(period)) {}

LiveSignals::LiveSignals(const std::vector<PlannedInstrument>& instruments) : starts_(instruments.size())
{
    for (const PlannedInstrument& instrument : instruments) {
        firstOf_.push_back(channels_.size());
        for (const ArmedChannel& channel : instrument.settings.channels) {
            channels_.push_back({instrument.index, instrument.name, channel, instrument.settings.period});
            signals_.push_back(std::make_unique<Signal>(instrument.settings.period));
        }
    }
    firstOf_.push_back(channels_.size());
}

void LiveSignals::Signal::append(const ArmedChannel& channel, std::span<const float> samples)
{
    const std::lock_guard lock(mutex);
    envelope.append(samples);
    if (channel.hasRange())
        clipped += std::count_if(samples.begin(), samples.end(), [&](float it) { return channel.isClipped(it); });
}

void LiveSignals::append(std::size_t instrument, const Block& block, std::int64_t from, std::int64_t count)
{
    constexpr std::size_t atOnce = 65536; // so that a chart waits for no large block
    const float* samples = block.samples.data() + from;
    for (std::size_t i = firstOf_[instrument]; i < firstOf_[instrument + 1]; ++i, samples += block.count)
        for (std::span<const float> rest(samples, static_cast<std::size_t>(count)); !rest.empty();) {
            const std::size_t size = std::min(atOnce, rest.size());
            signals_[i]->append(channels_[i].channel, rest.first(size));
            rest = rest.subspan(size);
        }
}

void LiveSignals::appendLost(std::size_t instrument, std::int64_t count)
{
    for (std::size_t i = firstOf_[instrument]; i < firstOf_[instrument + 1]; ++i) {
        const std::lock_guard lock(signals_[i]->mutex);
        signals_[i]->envelope.appendLost(count);
    }
}

void LiveSignals::setStarts(const std::vector<double>& starts)
{
    const std::lock_guard lock(mutex_);
    starts_ = starts;
}

void LiveSignals::setTrigger(double time)
{
    const std::lock_guard lock(mutex_);
    trigger_ = time;
}

void LiveSignals::setMarkers(std::vector<Marker> markers)
{
    const std::lock_guard lock(mutex_);
    markers_ = std::move(markers);
}

std::vector<std::int64_t> LiveSignals::clipped(std::size_t instrument) const
{
    std::vector<std::int64_t> counts;
    for (std::size_t i = firstOf_[instrument]; i < firstOf_[instrument + 1]; ++i) {
        const std::lock_guard lock(signals_[i]->mutex);
        counts.push_back(signals_[i]->clipped);
    }
    return counts;
}

ChartState LiveSignals::state() const
{
    ChartState state;
    const std::lock_guard lock(mutex_);
    state.trigger = trigger_;
    state.markers = markers_;
    for (std::size_t instrument = 0; instrument < starts_.size(); ++instrument)
        for (std::size_t i = firstOf_[instrument]; i < firstOf_[instrument + 1]; ++i) {
            const Signal& signal = *signals_[i];
            const std::lock_guard own(signal.mutex);
            state.channels.push_back(
                {starts_[instrument], signal.envelope.size(), signal.clipped, signal.envelope.latest()});
        }
    return state;
}

std::vector<Extent> LiveSignals::extents(std::size_t channel, const SampleSpan& span) const
{
    const Signal& signal = *signals_[channel];
    const std::lock_guard lock(signal.mutex);
    return signal.envelope.extents(span);
}

} // namespace ko
