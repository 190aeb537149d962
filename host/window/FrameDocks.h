#pragma once

#include "host/instruments/DriverWatch.h"
#include "widgets/services/QtScreen.h"
#include "widgets/support/Convert.h"

class QMainWindow;
class QWidget;

namespace ko {

class DriverLog;
class FailureStrip;
class FrameCapture;
class FrameHistory;
struct FrameParts;
class InstrumentsView;
class PageHost;
struct RecordingFailure;
class Reports;
class SetupSession;

/// The docks of the frame window (instruments, driver log, reports) and the strip of failing instruments, and the
/// user's actions in them.
class FrameDocks {
public:
    /// Adds the docks to the window and the strip to its central column. All arguments must outlive this object.
    FrameDocks(QMainWindow& window, FrameParts& parts, PageHost& page, SetupSession& session, FrameCapture& capture,
               FrameHistory& history);

    [[nodiscard]] InstrumentsView& instruments() { return *instruments_; }
    [[nodiscard]] DriverLog& log() { return *log_; }
    [[nodiscard]] Reports& reports() { return *reports_; }
    [[nodiscard]] DriverHealth& health() { return watch_.health(); }

    /// Observes and shows these instruments instead of the previous ones.
    void show(const HostInstruments& drivers);
    /// As `show`, after an edit: instruments that remain keep their failures and their rows.
    void follow(const HostInstruments& drivers);
    /// Counts the widget, which must outlive this object, as one of the docks.
    void include(const QWidget& dock) { others_.push_back(&dock); }
    /// Returns whether the widget is in a dock or in the strip; false for null.
    [[nodiscard]] bool contains(const QWidget* widget) const;

    /// Calls `rebuild`, which makes the page read its instruments again. Restores the focus if it was in a dock.
    void rebuildBy(const std::function<void()>& rebuild);
    /// Opens the devices that are closed, as a call of the host. If one is open then, calls `showPageAgain`.
    void openDevices();
    /// Hands the instruments over to the hidden page and shows it, as a call of the host.
    void showPageAgain();

    /// Returns whether a recording is in progress, which the instruments are not disturbed in.
    std::function<bool()> locked;
    /// Returns what has failed in the recording, for the strip; see `showRecordingFailures`.
    std::function<std::vector<RecordingFailure>()> recordingFailures;
    /// Called when `recordingFailures` has changed.
    void showRecordingFailures();

    /// Stops observing. Only `remove` and the destructor may be called afterwards.
    void stop();
    /// Deletes the docks that need the component's texts until they are deleted.
    void remove();

private:
    void joinWatch();
    void joinInstruments();
    void joinStrip();

    bool enableChannel(HostInstrument& driver, int group, int channel, bool on);
    [[nodiscard]] std::string numberOf(const HostInstrument& driver) const;
    void faultChanged(const HostInstrument& driver, const std::string& operation, bool fails);
    void handOverAgain();
    [[nodiscard]] bool isLocked() const;

    Texts texts_;
    PageHost& page_;
    SetupSession& session_;
    FrameCapture& capture_;
    FrameHistory& history_;
    std::shared_ptr<int> life_ = std::make_shared<int>();
    DriverWatch watch_{[] { return QtClock().now(); }};
    Reports* reports_;
    DriverLog* log_;
    InstrumentsView* instruments_;
    FailureStrip* failures_;
    std::vector<const QWidget*> others_;
};

} // namespace ko
