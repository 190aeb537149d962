#pragma once

#include "host/recording/HeldRecording.h"
#include "host/recording/RecordingRun.h"

#include <atomic>
#include <mutex>

namespace ko {

/// How a recording ended.
struct RecordingOutcome {
    std::string refusal; ///< why it was not begun; empty if it was
    RecordingProgress end;
    std::optional<HeldRecording> held;        ///< none if the file cannot be read
    std::shared_ptr<const ChartSource> chart; ///< of the file; null if they cannot be read
};

/// A recording from the creation of its file to the reading of what the file holds, on a thread of its own. Its members
/// are called on the user-interface thread, and none but the destructor waits.
class RecordingTask {
public:
    /// Records the instruments, which `planRecording` has armed. They are disarmed at the end, also if this fails.
    RecordingTask(const Instruments& instruments, RecordingPlan plan, RecordingOptions options);
    /// Stops and waits.
    ~RecordingTask();
    RecordingTask(const RecordingTask&) = delete;
    RecordingTask& operator=(const RecordingTask&) = delete;

    [[nodiscard]] const RecordingPlan& plan() const { return plan_; }
    [[nodiscard]] const std::string& file() const { return file_; }

    /// Null until the file has been created.
    [[nodiscard]] std::shared_ptr<RecordingRun> run() const;
    void stop();

    [[nodiscard]] bool isOver() const { return isOver_; }
    /// Can be called once it is over.
    [[nodiscard]] const RecordingOutcome& outcome() const { return outcome_; }

private:
    void work(const Instruments& instruments, RecordingOptions options);

    RecordingPlan plan_;
    std::string file_;
    mutable std::mutex mutex_; ///< protects `run_` and `isStopWanted_`
    std::shared_ptr<RecordingRun> run_;
    bool isStopWanted_ = false;
    RecordingOutcome outcome_; ///< written by the thread until `isOver_`
    std::atomic<bool> isOver_ = false;
    std::jthread thread_;
};

} // namespace ko
