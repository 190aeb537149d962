#include "host/recording/Recorder.h"

#include "host/recording/FreeSpace.h"
#include "host/recording/RecordingTexts.h"
#include "host/recording/UnfinishedFile.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <utility>

namespace ko {

namespace {

constexpr double patience = 3600.0;   // seconds for a trigger
constexpr std::size_t toSeconds = 19; // of the text of a moment

} // namespace

Recorder::Recorder(Instruments instruments, RecordingPlan plan, RecordingOptions options)
    : instruments_(std::move(instruments)), plan_(std::move(plan)), options_(std::move(options)),
      isRealTime_(options_.isPaced || plan_.isRealTime), start_(now()), queue_(options_.queueBytes)
{
    // A device cannot be hurried, and without a standing clock its samples have the time at which they come.
    options_.isPaced = options_.isPaced || (plan_.isRealTime && !options_.clock);
    if (!options_.freeBytes)
        options_.freeBytes = [file = options_.file] { return freeBytesFor(file); };
    if (plan_.startMode == startMode::atTime) {
        const auto moment = nextMoment(plan_.startTime, start_);
        if (!moment)
            throw RecordingRefusal("the start time " + isoText(momentOf(plan_.startTime)).substr(0, toSeconds) +
                                   " is past");
        start_ = *moment;
    }
    refuseWithoutSpace();
    std::vector<PlannedInstrument> recorded;
    for (const PlannedInstrument& it : plan_.instruments) {
        Acquisition& source = *instruments_[it.index]->acquisition();
        tracks_.push_back(std::make_unique<Track>(it, source, tracks_.size(), queue_, !isRealTime_));
        if (it.isRecorded()) {
            tracks_.back()->group = recorded.size();
            recorded.push_back(it);
        }
    }
    signals_ = std::make_shared<LiveSignals>(recorded);
    publish(presentState());
}

Moment Recorder::now() const
{
    return momentNow(options_.clock);
}

void Recorder::refuseWithoutSpace() const
{
    const double needed = spaceFor(plan_);
    const double free = options_.freeBytes();
    if (free < needed)
        throw RecordingRefusal(options_.file + ": the recording needs " + byteText(needed) + ", and " + byteText(free) +
                               " are free");
}

void Recorder::open()
{
    std::vector<RecordedInstrument> recorded;
    for (const PlannedInstrument& it : plan_.instruments)
        if (it.isRecorded())
            recorded.push_back({it.index, it.name, it.settings});
    const RecordedHead head{options_.title,  programText(),   isoText(now()),
                            isoText(start_), planText(plan_), options_.setup};
    file_ = std::make_unique<RecordedFile>(options_.file, head, recorded);
}

void Recorder::record()
{
    try {
        if (awaitStart())
            begin();
        while (isAcquiring())
            takeNext();
    } catch (const std::exception& error) {
        fail(error.what());
        queue_.open();
    }
    disarm(instruments_);
    finish();
}

/// Returns false if the recording is to stop before.
bool Recorder::awaitStart()
{
    const bool waits = options_.isPaced && plan_.startMode == startMode::atTime;
    while (waits && !isStopWanted_ && now() < start_) {
        publish(RunState::WaitingForTime);
        // The clock may be set meanwhile.
        queue_.take(Clock::now() + std::min<Moment::duration>(start_ - now(), std::chrono::seconds(1)));
    }
    return !isStopWanted_;
}

void Recorder::begin()
{
    origin_ = Clock::now();
    tick_ = origin_ + options_.flushInterval;
    // A start time may have passed by a moment, and by hours on a machine that was asleep.
    if (options_.isPaced)
        start_ = now();
    for (const auto& track : tracks_)
        if (track->plan.starts != StartsOn::StartLine)
            start(*track, 0.0);
}

void Recorder::start(Track& track, double notBefore)
{
    const bool onTrigger = track.plan.starts == StartsOn::OwnTrigger;
    const AcquisitionOrder order{.origin = origin_,
                                 .samples = track.plan.samples,
                                 .onTrigger = onTrigger,
                                 .notBefore = notBefore,
                                 .patience = patience,
                                 .isPaced = isRealTime_};
    try {
        track.acquisition.start(order, track);
        track.phase = Track::Phase::Acquiring;
    } catch (const std::exception& error) {
        track.phase = Track::Phase::Over;
        fail(track.plan.name + ": " + error.what());
    }
    if (track.plan.starts == StartsOn::Arming)
        startsAt(track, 0);
}

bool Recorder::isAcquiring() const
{
    return std::any_of(tracks_.begin(), tracks_.end(),
                       [](const auto& track) { return track->phase == Track::Phase::Acquiring; });
}

void Recorder::takeNext()
{
    if (const auto delivery = queue_.take(std::min(tick_, publishDue_))) {
        Track& track = *tracks_[delivery->instrument];
        std::visit([&](const auto& what) { take(track, what); }, delivery->what);
    }
    takeMarkers();
    if (Clock::now() >= tick_)
        secure();
    if (isStopWanted_)
        stopAll();
    publishWhenDue();
}

void Recorder::stopAll()
{
    if (std::exchange(isStopping_, true))
        return;
    queue_.open();
    for (const auto& track : tracks_)
        if (track->phase == Track::Phase::Acquiring)
            track->acquisition.stop();
}

void Recorder::take(Track& track, const Delivery::Triggered& trigger)
{
    trigger_ = track.timeOf(trigger.sample);
    startsAt(track, trigger.sample - track.plan.settings.trigger->pretrigger);
    for (const auto& other : tracks_)
        if (other->plan.starts == StartsOn::StartLine && other->phase == Track::Phase::Armed && !isStopping_)
            start(*other, track.timeOf(trigger.sample));
}

void Recorder::take(Track& track, const Block& block)
{
    if (!track.first)
        startsAt(track, block.first);
    storeLost(track, block.first);
    const std::int64_t from = track.next() - block.first;
    const std::int64_t count = std::min(block.count - from, track.toCome());
    if (count <= 0)
        return;
    track.stored += count;
    if (!track.group)
        return;
    signals_->append(*track.group, block, from, count);
    write([&] { file_->append(*track.group, block, from, count); });
}

/// The samples before `next` will not come any more.
void Recorder::storeLost(Track& track, std::int64_t next)
{
    const std::int64_t count = std::min(next - track.next(), track.toCome());
    if (count <= 0)
        return;
    track.stored += count;
    track.lost += count;
    if (!track.group)
        return;
    signals_->appendLost(*track.group, count);
    write([&] { file_->appendLost(*track.group, count); });
}

void Recorder::take(Track& track, const Delivery::Ended& end)
{
    if (track.first)
        storeLost(track, end.next);
    track.phase = Track::Phase::Over;
    track.acquisition.stop();
    if (!end.reason.empty())
        fail(track.plan.name + ": " + end.reason);
    else if (track.toCome() > 0 && !isStopping_)
        note(track.plan.name + ": ended after " + std::to_string(track.stored) + " of " +
             std::to_string(track.plan.samples) + " samples");
}

void Recorder::stop()
{
    isStopWanted_ = true;
    queue_.wake();
}

} // namespace ko
