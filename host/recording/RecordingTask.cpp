#include "host/recording/RecordingTask.h"

#include "host/recording/RecordedSignals.h"

namespace ko {

RecordingTask::RecordingTask(const Instruments& instruments, RecordingPlan plan, RecordingOptions options)
    : plan_(std::move(plan)), file_(options.file)
{
    try {
        thread_ = std::jthread([this, instruments, options = std::move(options)] {
            work(instruments, options);
            isOver_ = true;
        });
    } catch (...) {
        disarm(instruments);
        throw;
    }
}

RecordingTask::~RecordingTask()
{
    stop();
}

std::shared_ptr<RecordingRun> RecordingTask::run() const
{
    const std::lock_guard lock(mutex_);
    return run_;
}

void RecordingTask::stop()
{
    const std::lock_guard lock(mutex_);
    isStopWanted_ = true;
    if (run_)
        run_->stop();
}

void RecordingTask::work(const Instruments& instruments, RecordingOptions options)
{
    try {
        auto run = std::make_shared<RecordingRun>(instruments, plan_, std::move(options));
        {
            const std::lock_guard lock(mutex_);
            run_ = run;
            if (isStopWanted_)
                run->stop();
        }
        outcome_.end = run->wait();
    } catch (const std::exception& error) {
        outcome_.refusal = error.what();
        return;
    }
    try {
        outcome_.held = heldIn(file_);
        outcome_.chart = signalsIn(file_);
    } catch (const std::exception& error) {
        outcome_.end.failures.emplace_back(error.what());
    }
}

} // namespace ko
