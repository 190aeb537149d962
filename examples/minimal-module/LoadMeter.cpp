#include "LoadMeter.h"

#include <algorithm>
#include <cmath>
#include <condition_variable>
#include <cstdlib>
#include <mutex>

namespace {

using Clock = std::chrono::steady_clock;

ko::ChannelSettings channel(const std::string& address, const std::string& name, const std::string& unit)
{
    ko::ChannelSettings made;
    made.address = address;
    made.name = name;
    made.unit = unit;
    made.canTrigger = false;
    return made;
}

/// What the instrument offers and is set to at first.
ko::InstrumentSettings offered(const ko::DeviceOptions& options)
{
    ko::InstrumentSettings settings;
    settings.name = "Load meter";
    settings.options = {{"minutes", "1"}}; // every option that there is, with its value
    for (const auto& [name, value] : options) {
        if (name != "minutes" || (value != "1" && value != "5" && value != "15"))
            throw ko::Failure(ko::failure::unspecified, name + "=" + value + ": the option is minutes, 1, 5 or 15");
        settings.options[name] = value;
    }
    settings.groups = {{"Machine", {channel("0:1", "Load", "tasks"), channel("0:2", "Delay", "ms")}}};
    settings.hasTriggerParameters = false;
    settings.timebase.emplace();
    settings.timebase->samplePeriod.value = 0.01;
    settings.timebase->samplePeriod.choices = {0.001, 0.01, 0.1, 1.0};
    settings.timebase->blockSize.value = 10.0;
    settings.timebase->blockSize.range = {1.0, 1000.0};
    return settings;
}

/// One acquisition, on its thread.
struct Run {
    ko::ArmedSettings armed;
    ko::AcquisitionOrder order;
    ko::BlockSink& sink;
    int average; ///< which of the load averages is sampled

    void operator()(const std::stop_token& stop) const
    {
        auto next = static_cast<std::int64_t>(std::ceil(order.notBefore / armed.period));
        std::string reason;
        try {
            for (const std::int64_t end = next + order.samples; next < end && !stop.stop_requested();)
                next += deliverBlock(next, std::min(armed.blockSize, end - next), stop);
        } catch (const std::exception& error) {
            reason = error.what();
        }
        sink.ended(next, reason);
    }

    /// Returns how many samples of each channel were delivered: fewer than wanted only after a stop.
    std::int64_t deliverBlock(std::int64_t first, std::int64_t wanted, const std::stop_token& stop) const
    {
        std::vector<std::vector<float>> taken(armed.channels.size());
        std::int64_t count = 0;
        for (; count < wanted && waitUntil(timeOf(first + count), stop); ++count)
            for (std::size_t i = 0; i < taken.size(); ++i)
                taken[i].push_back(measured(armed.channels[i], timeOf(first + count)));
        ko::Block block{.first = first, .count = count, .samples = {}};
        for (const auto& channel : taken)
            block.samples.insert(block.samples.end(), channel.begin(), channel.end());
        if (count > 0)
            sink.deliver(std::move(block));
        return count;
    }

    Clock::time_point timeOf(std::int64_t sample) const
    {
        const std::chrono::duration<double> age(static_cast<double>(sample) * armed.period);
        return order.origin + std::chrono::duration_cast<Clock::duration>(age);
    }

    static bool waitUntil(Clock::time_point due, const std::stop_token& stop)
    {
        std::mutex mutex;
        std::condition_variable_any wake;
        std::unique_lock lock(mutex);
        wake.wait_until(lock, stop, due, [] { return false; });
        return !stop.stop_requested();
    }

    float measured(const ko::ArmedChannel& channel, Clock::time_point due) const
    {
        if (channel.channel == 1)
            return std::chrono::duration<float, std::milli>(Clock::now() - due).count();
        double averages[3]{};
        if (::getloadavg(averages, 3) != 3)
            throw ko::Failure(ko::failure::unspecified, "the load cannot be read");
        return static_cast<float>(averages[average]);
    }
};

} // namespace

LoadMeter::LoadMeter(const ko::DeviceOptions& options) : KeptInstrument(offered(options)) {}

/// A device gets its settings here, and is read back: another value than the one held is a failure that names both.
ko::ArmedSettings LoadAcquisition::arm()
{
    if (thread_.joinable())
        throw ko::Failure(ko::failure::unspecified, "is acquiring");
    armed_ = settingsToArm();
    const std::string& minutes = held_.options.at("minutes");
    average_ = minutes == "1" ? 0 : minutes == "5" ? 1 : 2;
    return *armed_;
}

void LoadAcquisition::start(const ko::AcquisitionOrder& order, ko::BlockSink& sink)
{
    if (!armed_)
        throw ko::Failure(ko::failure::unspecified, "is not armed");
    if (order.onTrigger)
        throw ko::Failure(ko::failure::unspecified, "cannot trigger");
    thread_ = std::jthread(Run{*armed_, order, sink, average_});
    armed_.reset();
}

/// Returns after `ended`, because the thread calls it last.
void LoadAcquisition::stop()
{
    armed_.reset();
    thread_.request_stop();
    if (thread_.joinable())
        thread_.join();
}
