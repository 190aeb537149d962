#pragma once

#include "host/recording/LiveSignals.h"
#include "host/recording/Moments.h"
#include "host/recording/RecordedFile.h"
#include "host/recording/RecordingRun.h"
#include "host/recording/RecordingTrack.h"

#include <atomic>

namespace ko {

/// The work of a recording. `open` and `record` run on its thread; the other members can be called on any.
class Recorder {
public:
    /// Fails with a `RecordingRefusal` if the recording cannot start.
    Recorder(Instruments instruments, RecordingPlan plan, RecordingOptions options);

    /// Creates the file. Fails with an `InputError`.
    void open();
    /// Records to the end. Failures are kept in the progress.
    void record();

    void stop();
    [[nodiscard]] RecordingProgress progress() const;
    [[nodiscard]] std::shared_ptr<const ChartSource> chart() const { return signals_; }
    bool addMarker(const std::string& text);
    bool waitFor(std::chrono::milliseconds time) const;

private:
    using Clock = std::chrono::steady_clock;
    using Track = RecordingTrack;

    [[nodiscard]] Moment now() const;
    void refuseWithoutSpace() const;

    bool awaitStart();
    void begin();
    void start(Track& track, double notBefore);
    [[nodiscard]] bool isAcquiring() const;
    void takeNext();
    void secure();
    void stopAll();
    void finish();

    void take(Track& track, const Delivery::Triggered& trigger);
    void take(Track& track, const Block& block);
    void take(Track& track, const Delivery::Ended& end);
    void storeLost(Track& track, std::int64_t next);
    void startsAt(Track& track, std::int64_t first);
    [[nodiscard]] std::vector<double> starts() const;
    void placeInTime();
    void takeMarkers();
    void writeMarkers();
    void writeClipped();
    [[nodiscard]] double earliest() const;
    /// Runs `act`, which writes the file, unless the file has failed.
    void write(const std::function<void()>& act);
    /// Keeps the reason why less is recorded than planned.
    void note(const std::string& reason);
    void fail(const std::string& reason);

    [[nodiscard]] RunState presentState() const;
    [[nodiscard]] RunState endState() const;
    [[nodiscard]] double elapsed() const;
    [[nodiscard]] bool takesMarkers(RunState state) const;
    void publish(RunState state);
    void publishWhenDue();

    Instruments instruments_;
    RecordingPlan plan_;
    RecordingOptions options_;
    bool isRealTime_;          ///< the instruments acquire in real time
    Moment start_;             ///< when the recording's time begins
    Clock::time_point origin_; ///< the same
    Clock::time_point tick_;   ///< when `secure` is due next
    Clock::time_point publishDue_;
    BlockQueue queue_;
    std::vector<std::unique_ptr<Track>> tracks_; ///< one for each instrument of the plan
    std::unique_ptr<RecordedFile> file_;
    std::shared_ptr<LiveSignals> signals_; ///< of the recorded instruments
    std::optional<double> trigger_;        ///< in the recording's time
    std::vector<Marker> markers_;          ///< the same
    bool areMarkersWritten_ = true;
    std::vector<std::string> failures_;
    bool hasFailed_ = false;     ///< not all of them are shortages
    bool isFileGood_ = true;     ///< the file can be written
    bool hasFileFailed_ = false; ///< or nearly
    bool isStopping_ = false;
    std::atomic<bool> isStopWanted_ = false;

    struct NewMarker {
        Clock::time_point moment;
        std::string text;
    };

    mutable std::mutex mutex_; ///< protects the rest
    mutable std::condition_variable ended_;
    RecordingProgress progress_;
    std::vector<NewMarker> newMarkers_;
};

} // namespace ko
