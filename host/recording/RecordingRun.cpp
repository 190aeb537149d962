#include "host/recording/RecordingRun.h"

#include "host/recording/Recorder.h"

#include <future>

namespace ko {

RecordingRun::RecordingRun(Instruments instruments, RecordingPlan plan, RecordingOptions options)
{
    std::promise<void> opened;
    std::future<void> isOpen = opened.get_future();
    const Instruments armed = instruments;
    try {
        recorder_ = std::make_unique<Recorder>(std::move(instruments), std::move(plan), std::move(options));
        writer_ = std::jthread([this, opened = std::move(opened)]() mutable {
            try {
                recorder_->open();
            } catch (...) {
                opened.set_exception(std::current_exception());
                return;
            }
            opened.set_value();
            recorder_->record();
        });
        isOpen.get();
    } catch (...) {
        disarm(armed);
        throw;
    }
}

RecordingRun::~RecordingRun()
{
    stop();
}

RecordingProgress RecordingRun::progress() const
{
    return recorder_->progress();
}

std::shared_ptr<const ChartSource> RecordingRun::chart() const
{
    return recorder_->chart();
}

bool RecordingRun::addMarker(const std::string& text)
{
    return recorder_->addMarker(text);
}

void RecordingRun::stop()
{
    recorder_->stop();
}

bool RecordingRun::waitFor(std::chrono::milliseconds time) const
{
    return recorder_->waitFor(time);
}

RecordingProgress RecordingRun::wait() const
{
    while (!waitFor(std::chrono::hours(1))) {
    }
    return progress();
}

} // namespace ko
