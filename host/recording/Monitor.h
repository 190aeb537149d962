#pragma once

#include "host/recording/LiveSignals.h"

#include <condition_variable>
#include <thread>

namespace ko {

/// Acquires from all instruments, from now on, to show their signals; nothing is written. The schedule does not count:
/// no instrument waits for a time or a trigger, or ends by itself. One that fails stops no other. Its members are
/// called on the user-interface thread and do not wait, unless they say so.
class Monitor {
public:
    /// Arms the instruments. Fails with a `RecordingRefusal` if none of them has a timebase and an enabled channel, or
    /// all of those fail.
    explicit Monitor(Instruments instruments);
    /// Stops and waits.
    ~Monitor();
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;

    /// What is being measured; remains when the monitor has ended.
    [[nodiscard]] std::shared_ptr<const ChartSource> chart() const { return signals_; }
    /// In English, each with the instrument that failed.
    [[nodiscard]] std::vector<std::string> failures() const;

    void stop();
    /// Whether no instrument is acquiring any more.
    [[nodiscard]] bool isOver() const;
    /// Waits for the end, but not longer than this. Returns `isOver`.
    bool waitFor(std::chrono::milliseconds time) const;

private:
    class Track;

    void arm();
    void run(const std::stop_token& stop);
    void note(const std::string& name, const std::string& reason);

    Instruments instruments_;
    std::vector<PlannedInstrument> armed_;
    std::shared_ptr<LiveSignals> signals_;
    std::vector<std::unique_ptr<Track>> tracks_; ///< one for each armed instrument

    mutable std::mutex mutex_; ///< protects the rest
    mutable std::condition_variable_any changed_;
    std::vector<std::string> failures_;
    std::size_t acquiring_ = 0;
    bool isOver_ = false;
    std::jthread thread_;
};

} // namespace ko
