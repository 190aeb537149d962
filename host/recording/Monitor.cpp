#include "host/recording/Monitor.h"

#include <limits>

namespace ko {

/// An instrument that is monitored, as the sink of its blocks.
class Monitor::Track final : public BlockSink {
public:
    Track(Monitor& monitor, std::size_t place) : monitor_(monitor), place_(place) {}

    void triggered(std::int64_t /*sample*/) override {}
    void deliver(Block block) override
    {
        LiveSignals& signals = *monitor_.signals_;
        if (block.first > next_)
            signals.appendLost(place_, block.first - next_);
        signals.append(place_, block, 0, block.count);
        next_ = block.first + block.count;
    }
    void ended(std::int64_t /*next*/, const std::string& reason) override
    {
        if (!reason.empty())
            monitor_.note(monitor_.armed_[place_].name, reason);
        const std::lock_guard lock(monitor_.mutex_);
        --monitor_.acquiring_;
        monitor_.changed_.notify_all();
    }

private:
    Monitor& monitor_;
    std::size_t place_;
    std::int64_t next_ = 0;
};

Monitor::Monitor(Instruments instruments) : instruments_(std::move(instruments))
{
    arm();
    signals_ = std::make_shared<LiveSignals>(armed_);
    for (std::size_t i = 0; i < armed_.size(); ++i)
        tracks_.push_back(std::make_unique<Track>(*this, i));
    thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
}

Monitor::~Monitor() = default;

void Monitor::arm()
{
    for (std::size_t i = 0; i < instruments_.size(); ++i)
        if (Acquisition* const acquisition = instruments_[i]->acquisition())
            try {
                PlannedInstrument armed{.index = i, .name = instruments_[i]->name(), .settings = acquisition->arm()};
                if (!(armed.settings.period > 0.0))
                    fail(failure::divisionByZero);
                if (armed.isRecorded())
                    armed_.push_back(std::move(armed));
                else
                    acquisition->stop();
            } catch (const std::exception& error) {
                acquisition->stop();
                note(instruments_[i]->name(), error.what());
            }
    if (armed_.empty())
        throw RecordingRefusal(failures_.empty() ? "no instrument has a timebase and an enabled channel"
                                                 : failures_.front());
}

void Monitor::run(const std::stop_token& stop)
{
    AcquisitionOrder order;
    order.origin = std::chrono::steady_clock::now();
    order.samples = std::numeric_limits<std::int64_t>::max() / 2;
    acquiring_ = armed_.size();
    for (std::size_t i = 0; i < armed_.size(); ++i)
        try {
            instruments_[armed_[i].index]->acquisition()->start(order, *tracks_[i]);
        } catch (const std::exception& error) {
            tracks_[i]->ended(0, error.what());
        }
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, stop, [this] { return acquiring_ == 0; });
    }
    for (const PlannedInstrument& it : armed_)
        instruments_[it.index]->acquisition()->stop();
    const std::lock_guard lock(mutex_);
    isOver_ = true;
    changed_.notify_all();
}

void Monitor::note(const std::string& name, const std::string& reason)
{
    const std::lock_guard lock(mutex_);
    failures_.push_back(name + ": " + reason);
}

std::vector<std::string> Monitor::failures() const
{
    const std::lock_guard lock(mutex_);
    return failures_;
}

void Monitor::stop()
{
    thread_.request_stop();
}

bool Monitor::isOver() const
{
    return waitFor({});
}

bool Monitor::waitFor(std::chrono::milliseconds time) const
{
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, time, [this] { return isOver_; });
}

} // namespace ko
