#include "host/recording/Hdf5.h"
#include "host/recording/Recorder.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <utility>

namespace ko {

/// The recording's earliest sample, in seconds of its time.
double Recorder::earliest() const
{
    std::optional<double> time;
    for (const auto& track : tracks_)
        if (track->group && track->first)
            time = std::min(track->timeOf(*track->first), time.value_or(track->timeOf(*track->first)));
    return time.value_or(0.0);
}

/// How much later than that each recorded instrument starts.
std::vector<double> Recorder::starts() const
{
    const double time = earliest();
    std::vector<double> starts;
    for (const auto& it : tracks_)
        if (it->group)
            starts.push_back(it->first ? it->timeOf(*it->first) - time : 0.0);
    return starts;
}

/// Dates everything from the earliest sample, which the first block of any instrument may turn out to have.
void Recorder::placeInTime()
{
    const double time = earliest();
    signals_->setStarts(starts());
    if (trigger_)
        signals_->setTrigger(*trigger_ - time);
    std::vector<Marker> markers = markers_;
    for (Marker& marker : markers)
        marker.time -= time;
    signals_->setMarkers(std::move(markers));
    areMarkersWritten_ = markers_.empty();
}

void Recorder::startsAt(Track& track, std::int64_t first)
{
    track.first = first;
    placeInTime();
    write([&] { file_->setStart(isoText(later(start_, earliest())), starts()); });
}

bool Recorder::takesMarkers(RunState state) const
{
    const bool hasBegun =
        std::any_of(tracks_.begin(), tracks_.end(), [](const auto& it) { return it->group && it->first; });
    return hasBegun && state < RunState::Finishing;
}

bool Recorder::addMarker(const std::string& text)
{
    const std::lock_guard lock(mutex_);
    if (!progress_.takesMarkers)
        return false;
    newMarkers_.push_back({Clock::now(), shortened(text, Marker::textSize)});
    queue_.wake();
    return true;
}

void Recorder::takeMarkers()
{
    std::vector<NewMarker> added;
    {
        const std::lock_guard lock(mutex_);
        added = std::exchange(newMarkers_, {});
    }
    for (NewMarker& it : added) {
        const std::chrono::duration<double> age = it.moment - origin_;
        markers_.push_back({options_.isPaced ? age.count() : elapsed(), std::move(it.text)});
    }
    if (!added.empty())
        placeInTime();
}

} // namespace ko
