#pragma once

#include "host/recording/Monitor.h"
#include "host/recording/ReadOnlyPage.h"
#include "host/recording/RecordingTask.h"
#include "host/window/FrameParts.h"
#include "widgets/support/UserActions.h"

#include <QAction>
#include <QTimer>
#include <functional>
#include <optional>

class QDialog;
class QMainWindow;
class QMenu;
class QToolBar;

namespace ko {

class ChartPanel;
class FrameCapture;
class FrameFiles;
class PageHost;
class RecordingView;

/// What has failed during a recording.
struct RecordingFailure {
    std::string key;  ///< the same failure has the same key later
    std::string text; ///< one line

    bool operator==(const RecordingFailure&) const = default;
};

/// A file that was opened as a recording.
struct OpenedRecording {
    std::string file;
    HeldRecording held;
    std::shared_ptr<const ChartSource> chart;
};

/// Recordings in the frame window: the entries Record, Monitor and Stop, the toolbar, the dock that shows the recording
/// in progress with its chart, and the read-only page meanwhile. Nothing of it waits for an instrument or the file.
class FrameRecording : public QObject {
public:
    /// Adds the dock, hidden, and the toolbar to the window. All arguments must outlive this object.
    FrameRecording(QMainWindow& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                   FrameFiles& files, FrameCapture& capture);
    ~FrameRecording() override;
    /// Ends a recording in progress, waits for its end, and leaves the page as it is. Only the destructor may be called
    /// afterwards.
    void close();

    void addEntries(QMenu& menu);
    [[nodiscard]] RecordingView& view() { return *view_; }
    [[nodiscard]] ChartPanel& chart() { return *chart_; }
    [[nodiscard]] QToolBar& toolBar() { return *toolBar_; }

    /// Asks for the file and begins to record. Shows the user why if that is impossible.
    void record();
    /// Shows the signals of the instruments until it is stopped; nothing is written.
    void monitor();
    /// Ends the recording or the monitor in progress early; does not wait.
    void stop();
    /// Whether a recording or a monitor is in progress.
    [[nodiscard]] bool isActive() const { return task_ || monitor_; }
    /// Returns whether the set-up may be closed: asks the user to stop a recording in progress and waits for its end,
    /// while the window handles events.
    [[nodiscard]] bool mayLeave();

    /// Returns the set-up that a recording was made with; none if the file is no recording. If it replaces the open
    /// set-up, `followSetup` must be called. Throws an `InputError` if the file cannot be read.
    std::optional<std::string> setupIn(const std::string& file);
    /// Called when another set-up may be open: the recording that it was read from, if any, is the opened one.
    void followSetup();
    /// Whether the open set-up was read from a recording.
    [[nodiscard]] bool isOpened() const { return opened_.has_value(); }
    /// Shows the opened recording, or nothing, in place of what is shown, unless that belongs to the open set-up.
    void showOpened();

    /// Throws an `InputError` if the file is being recorded.
    void refuseOwn(const std::string& file) const;

    /// What has failed during the recording in progress or the last one, one line each.
    [[nodiscard]] const std::vector<RecordingFailure>& failures() const { return failures_; }

    /// Switches the page to read-only mode and back; set by the window.
    std::function<void(bool)> setReadOnly;
    /// Runs a call by which instruments may change, which is no edit of the user; set by the window.
    std::function<void(const std::function<void()>& call)> hostCall;
    /// Opens the devices that are closed, and makes the page show what they offer; set by the window.
    std::function<void()> openDevices;
    /// Makes the page show what devices offer that were opened to be armed; set by the window.
    std::function<void()> devicesOpened;
    /// Shows the dock; set by the window.
    std::function<void()> reveal;
    /// Called when `failures` has changed.
    std::function<void()> failed;

private:
    [[nodiscard]] Instruments instruments() const;
    [[nodiscard]] RecordingPlan planned(PlanFor purpose) const;
    void begin(const std::string& file, const RecordingPlan& start);
    /// Makes the page read-only and shows the dock.
    void lock(int badge);
    /// Throws a `RecordingRefusal` if a device is missing.
    void refuseMissing() const;
    /// Makes the page as it was before, with what devices that were opened meanwhile offer. Returns false if the window
    /// has been destroyed by that.
    bool unlock();
    void follow();
    void followMonitor();
    void end();
    void showOutcome(const std::string& file, const RecordingOutcome& outcome);
    void noteFailures(const RecordingProgress& progress);
    void noteFailures(std::vector<RecordingFailure> failures);
    void refuse(const std::string& reason);
    void beginFollowing();
    void enableEntries();

    QMainWindow& window_;
    const UserActions& actions_;
    FrameParts& parts_;
    PageHost& page_;
    FrameFiles& files_;
    FrameCapture& capture_;
    RecordingView* view_;
    QToolBar* toolBar_;
    ChartPanel* chart_;
    QAction record_, showSignals_, stop_;
    QTimer timer_;
    std::optional<ReadOnlyPage> readOnly_;
    std::unique_ptr<RecordingTask> task_;
    std::unique_ptr<Monitor> monitor_;
    int timesOpened_ = 0;    ///< the devices of all instruments, when the page was locked
    bool isCharted_ = false; ///< the chart shows the recording in progress
    std::vector<RecordingFailure> failures_;
    std::optional<OpenedRecording> read_; ///< read as a set-up, which may still be refused
    std::optional<OpenedRecording> opened_;
    std::weak_ptr<const void> shownFor_; ///< the set-up that what is shown belongs to
    QPointer<QDialog> waiting_;          ///< shown until the recording has ended
};

} // namespace ko
