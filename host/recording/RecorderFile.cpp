#include "host/recording/FreeSpace.h"
#include "host/recording/Recorder.h"
#include "host/recording/RecordingTexts.h"
#include "host/recording/UnfinishedFile.h"

#include <algorithm>
#include <utility>

namespace ko {

void Recorder::secure()
{
    writeMarkers();
    writeClipped();
    write([this] { file_->flush(); });
    // What follows must fit, and at the end the file's own tables.
    double toCome = 0.0;
    for (const auto& track : tracks_)
        toCome +=
            4.0 * static_cast<double>(track->toCome()) * static_cast<double>(track->plan.settings.channels.size());
    const double free = options_.freeBytes();
    if (isFileGood_ && !isStopping_ && free < std::min(toCome, reserveBytes)) {
        hasFileFailed_ = true;
        fail(options_.file + ": the disk is nearly full, " + byteText(free) + " are free");
        stopAll();
    }
    tick_ = Clock::now() + options_.flushInterval;
}

void Recorder::writeMarkers()
{
    if (!std::exchange(areMarkersWritten_, true))
        write([this] { file_->setMarkers(signals_->state().markers); });
}

void Recorder::writeClipped()
{
    for (const auto& track : tracks_)
        if (track->group)
            write([&] { file_->setClipped(*track->group, signals_->clipped(*track->group)); });
}

void Recorder::write(const std::function<void()>& act)
{
    if (!isFileGood_)
        return;
    try {
        act();
    } catch (const std::exception& error) {
        isFileGood_ = false;
        hasFileFailed_ = true;
        fail(error.what());
        stopAll();
    }
}

void Recorder::note(const std::string& reason)
{
    failures_.push_back(reason);
}

void Recorder::fail(const std::string& reason)
{
    hasFailed_ = true;
    note(reason);
}

void Recorder::finish()
{
    publish(RunState::Finishing);
    takeMarkers();
    writeMarkers();
    writeClipped();
    const std::string end = isoText(options_.isPaced ? now() : later(start_, elapsed()));
    write([&] { file_->close(stateText(endState()), end); });
    if (!isFileGood_)
        try {
            file_->close(recordedState::failed, end);
        } catch (const std::exception&) {
            fail(options_.file + ": was not closed, --compare makes it readable");
        }
    file_.reset();
    publish(endState());
}

} // namespace ko
