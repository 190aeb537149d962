#include "host/recording/Recorder.h"

#include <algorithm>

namespace ko {

RunState Recorder::endState() const
{
    const bool isComplete =
        std::all_of(tracks_.begin(), tracks_.end(), [](const auto& track) { return track->toCome() == 0; });
    return hasFailed_ ? RunState::Failed : isComplete ? RunState::Done : RunState::Stopped;
}

RunState Recorder::presentState() const
{
    if (isStopping_)
        return RunState::Finishing;
    const bool awaits = std::any_of(tracks_.begin(), tracks_.end(), [](const auto& it) { return it->awaitsTrigger(); });
    return awaits ? RunState::WaitingForTrigger : RunState::Recording;
}

double Recorder::elapsed() const
{
    double time = 0.0;
    for (const auto& track : tracks_)
        time = std::max(time, track->timeOf(track->next()));
    return time;
}

void Recorder::publish(RunState state)
{
    RecordingProgress progress{.state = state,
                               .elapsed = elapsed(),
                               .instruments = {},
                               .failures = failures_,
                               .hasFileFailed = hasFileFailed_,
                               .takesMarkers = takesMarkers(state)};
    const double time = earliest();
    for (const auto& track : tracks_) {
        const ArmedSettings& settings = track->plan.settings;
        if (track->group)
            progress.instruments.push_back(
                {.index = track->plan.index,
                 .name = track->plan.name,
                 .samples = track->stored,
                 .planned = track->plan.samples,
                 .bytes = 4.0 * static_cast<double>(track->stored) * static_cast<double>(settings.channels.size()),
                 .lost = track->lost,
                 .clipped = signals_->clipped(*track->group),
                 .period = settings.period,
                 .startOffset = track->first ? track->timeOf(*track->first) - time : 0.0});
    }
    publishDue_ = Clock::now() + std::chrono::milliseconds(50);
    const std::lock_guard lock(mutex_);
    progress_ = std::move(progress);
    if (isOver(state))
        ended_.notify_all();
}

/// Publishes a change of state at once, and the figures as often as they can be read.
void Recorder::publishWhenDue()
{
    // Only this thread changes what has been published.
    const RunState state = presentState();
    const bool isNew = state != progress_.state || takesMarkers(state) != progress_.takesMarkers ||
                       failures_.size() != progress_.failures.size();
    if (isNew || Clock::now() >= publishDue_)
        publish(state);
}

RecordingProgress Recorder::progress() const
{
    const std::lock_guard lock(mutex_);
    return progress_;
}

bool Recorder::waitFor(std::chrono::milliseconds time) const
{
    std::unique_lock lock(mutex_);
    return ended_.wait_for(lock, time, [this] { return isOver(progress_.state); });
}

} // namespace ko
