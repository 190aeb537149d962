#include "host/instruments/SimulatedAcquisition.h"

#include "host/instruments/KeptInstrument.h"
#include "platform/Counts.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

bool crosses(double before, double now, double level, Slope slope)
{
    const bool rises = before < level && level <= now;
    const bool falls = before > level && level >= now;
    return slope == Slope::Rising ? rises : slope == Slope::Falling ? falls : rises || falls;
}

} // namespace

/// One acquisition on its thread.
class SimulatedAcquisition::Run {
public:
    Run(Armed armed, const AcquisitionOrder& order, BlockSink& sink)
        : armed_(std::move(armed)), order_(order), sink_(sink)
    {
    }

    void operator()(const std::stop_token& stop)
    {
        std::string reason;
        try {
            if (order_.onTrigger)
                awaitTrigger(stop);
            else
                next_ = static_cast<std::int64_t>(roundedUp(order_.notBefore / armed_.settings.period));
            deliver(stop);
        } catch (const std::exception& error) {
            reason = error.what();
        }
        sink_.ended(next_, reason);
    }

private:
    void awaitTrigger(const std::stop_token& stop);
    void deliver(const std::stop_token& stop);
    [[nodiscard]] std::int64_t samplesAtOnce() const;
    [[nodiscard]] Block block(std::int64_t count) const;
    bool waitFor(std::int64_t sample, const std::stop_token& stop);

    Armed armed_;
    AcquisitionOrder order_;
    BlockSink& sink_;
    std::int64_t next_ = 0;
    std::mutex mutex_;
    std::condition_variable_any wake_;
};

/// Returns false if the acquisition is to stop, else after the sample has been taken.
bool SimulatedAcquisition::Run::waitFor(std::int64_t sample, const std::stop_token& stop)
{
    if (order_.isPaced) {
        const std::chrono::duration<double> age(static_cast<double>(sample) * armed_.settings.period);
        const auto due = order_.origin + std::chrono::duration_cast<std::chrono::steady_clock::duration>(age);
        std::unique_lock lock(mutex_);
        wake_.wait_until(lock, stop, due, [] { return false; });
    }
    return !stop.stop_requested();
}

/// Whole blocks where they are small; a tenth of a second in real time, so that little is lost with the program.
std::int64_t SimulatedAcquisition::Run::samplesAtOnce() const
{
    constexpr std::int64_t usual = 16384;
    constexpr std::int64_t most = 4194304; // of all channels
    const std::int64_t block = armed_.settings.blockSize;
    const std::int64_t whole = block >= usual ? block : usual / block * block;
    const double tenth = order_.isPaced ? 0.1 / armed_.settings.period : static_cast<double>(most);
    const auto bound = std::min(most / std::max<std::int64_t>(std::ssize(armed_.measured), 1),
                                static_cast<std::int64_t>(std::min(tenth, static_cast<double>(most))));
    return std::clamp<std::int64_t>(whole, 1, std::max<std::int64_t>(bound, 1));
}

void SimulatedAcquisition::Run::awaitTrigger(const std::stop_token& stop)
{
    if (!armed_.trigger)
        throw Failure(failure::unspecified, "no channel is the trigger source");
    const ArmedTrigger& trigger = *armed_.settings.trigger;
    const std::int64_t step = samplesAtOnce();
    const auto last = static_cast<std::int64_t>(order_.patience / armed_.settings.period);
    std::int64_t sample = std::max<std::int64_t>(trigger.pretrigger, 1);
    double before = armed_.trigger->at(sample - 1);
    for (std::int64_t end = sample + step; waitFor(std::min(end, last + 1) - 1, stop); end += step)
        for (; sample < end; ++sample) {
            if (sample > last)
                throw Failure(failure::unspecified,
                              "no trigger within " + std::to_string(std::llround(order_.patience)) + " seconds");
            const double now = armed_.trigger->at(sample);
            if (crosses(before, now, trigger.level, trigger.slope)) {
                next_ = sample - trigger.pretrigger;
                return sink_.triggered(sample);
            }
            before = now;
        }
}

void SimulatedAcquisition::Run::deliver(const std::stop_token& stop)
{
    const std::int64_t step = samplesAtOnce();
    const std::int64_t end = next_ + order_.samples;
    while (next_ < end) {
        const std::int64_t count = std::min(step, end - next_);
        if (!waitFor(next_ + count - 1, stop))
            return;
        Block made = block(count);
        next_ += count;
        sink_.deliver(std::move(made));
    }
}

Block SimulatedAcquisition::Run::block(std::int64_t count) const
{
    const auto size = static_cast<std::size_t>(count);
    Block made{.first = next_, .count = count, .samples = std::vector<float>(size * armed_.measured.size())};
    float* at = made.samples.data();
    for (const Signal& signal : armed_.measured) {
        signal.fill({at, size}, next_);
        at += size;
    }
    return made;
}

ArmedSettings SimulatedAcquisition::settingsToArm() const
{
    return armedSettings(held_);
}

ArmedSettings SimulatedAcquisition::arm()
{
    if (thread_.joinable())
        throw Failure(failure::unspecified, "is acquiring");
    Armed armed{.settings = settingsToArm(), .measured = {}, .trigger = {}};
    const double period = armed.settings.period;
    forEachChannel(held_, [&](const ChannelSettings& it, std::int32_t group, std::int32_t channel) {
        const Signal signal(it.signal.value_or(SignalSettings{}), it.address, period, it.range);
        if (it.isEnabled())
            armed.measured.push_back(signal);
        const auto& trigger = armed.settings.trigger;
        if (trigger && trigger->group == group && trigger->channel == channel)
            armed.trigger = signal;
    });
    return armed_.emplace(std::move(armed)).settings;
}

void SimulatedAcquisition::start(const AcquisitionOrder& order, BlockSink& sink)
{
    if (!armed_)
        throw Failure(failure::unspecified, "is not armed");
    thread_ = std::jthread(
        [run = std::make_unique<Run>(std::move(*armed_), order, sink)](const std::stop_token& stop) { (*run)(stop); });
    armed_.reset();
}

void SimulatedAcquisition::stop()
{
    armed_.reset();
    if (!thread_.joinable())
        return;
    thread_.request_stop();
    thread_.join();
}

} // namespace ko
