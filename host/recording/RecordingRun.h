#pragma once

#include "host/recording/ChartSource.h"
#include "host/recording/RecordingPlan.h"
#include "host/recording/RecordingProgress.h"

#include <memory>
#include <thread>

namespace ko {

class Recorder;

struct RecordingOptions {
    std::string file;
    std::string title;             ///< of the set-up
    std::string setup;             ///< the set-up's text
    std::optional<DateTime> clock; ///< a standing clock; none: the machine's
    bool isPaced = true;           ///< in real time; else as fast as possible, unless the plan `isRealTime`
    /// Returns how many bytes can be written in the file's folder; empty: asks the system.
    std::function<double()> freeBytes;
    std::size_t queueBytes = std::size_t{64} * 1024 * 1024; ///< for what is on its way to the file
    /// What was recorded longer ago than this is in the file.
    std::chrono::milliseconds flushInterval{500};
};

/// A recording in progress, on threads of its own. Its members are called on the user-interface thread and do not wait,
/// unless they say so.
class RecordingRun {
public:
    /// Starts to record the instruments, which `planRecording` has armed. Waits until the file has been created. Fails
    /// with a `RecordingRefusal` or an `InputError`; the instruments are then disarmed.
    RecordingRun(Instruments instruments, RecordingPlan plan, RecordingOptions options);
    /// Stops and waits.
    ~RecordingRun();
    RecordingRun(const RecordingRun&) = delete;
    RecordingRun& operator=(const RecordingRun&) = delete;

    [[nodiscard]] RecordingProgress progress() const;

    /// What is being recorded, for charts; remains when the recording has ended.
    [[nodiscard]] std::shared_ptr<const ChartSource> chart() const;

    /// Marks the present time, in the file at the next flush. The text is shortened to `Marker::textSize`. Does nothing
    /// and returns false unless the recording `takesMarkers`.
    bool addMarker(const std::string& text);

    /// Ends the recording early; what the instruments have delivered is still recorded. Can be called on any thread.
    void stop();

    /// Waits for the end, but not longer than this. Returns whether the recording has ended, with no instrument
    /// acquiring.
    bool waitFor(std::chrono::milliseconds time) const;

    /// Waits for the end and returns how it ended.
    RecordingProgress wait() const;

private:
    std::unique_ptr<Recorder> recorder_;
    std::jthread writer_;
};

} // namespace ko
