#pragma once

#include "host/scenario/ScenarioCapture.h"
#include "host/setup/HistoryState.h"
#include "host/setup/SetupSession.h"
#include "host/window/FrameParts.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/UserActions.h"

#include <QAction>
#include <memory>

namespace ko {

/// The parts of the window that a capture uses. All of them must outlive it.
struct CaptureFrame {
    QWidget& window;
    const UserActions& actions;
    FrameParts& parts;
    const SetupSession& session;
    std::function<Document&()> document;
    std::function<bool()> mayLeave;  ///< returns whether the page may be left; if not, the user has been shown why
    std::function<void()> renewPage; ///< makes a new document, shown without instruments
    std::function<void()> showAgain; ///< hides the page, hands the instruments over and shows the page
};

/// Captures what happens in a frame window as a scenario: the menu entry, the sign for the status line, and the file
/// that is being written, if any. If the file cannot be written, the capture ends with a message; nothing else changes.
class FrameCapture : public QObject {
public:
    explicit FrameCapture(CaptureFrame frame);
    ~FrameCapture() override;

    /// The checkable menu entry "Capture Scenario...".
    [[nodiscard]] QAction& action() { return action_; }
    /// Visible during a capture.
    [[nodiscard]] QWidget& sign() { return sign_; }

    /// Starts a capture with a page that has just been made and shown without instruments. `setup` is the file with
    /// which a replay starts. Throws an `InputError` if the scenario cannot be written.
    void start(const std::string& file, const std::string& setup);
    /// Starts a capture at any time. Saves the instruments' present state as a set-up next to the scenario, and shows
    /// the instruments on a new page. Throws an `InputError` if a file cannot be written.
    void startFromHere(const std::string& file);
    void stop();

    /// Throws an `InputError` if the file is that of the scenario.
    void refuseOwn(const std::string& file) const;

    // Called before the host does something; without effect when nothing is being captured.
    /// Captures a scenario's command, such as `fail`, `heal`, `enable`, `read-only` or `ok-to-leave`.
    void host(const ScenarioWriter::Words& words);
    /// Captures a menu command for the page, and for pasting also the clipboard's text.
    void command(std::int32_t id);
    /// Captures that the instruments are going to be changed to these.
    void instruments(const HeldState& to);
    /// Captures that the instruments of `file` are going to be shown instead of the previous ones.
    void setup(const std::string& file);

private:
    void chooseFile();
    [[nodiscard]] QString fileToWrite();
    [[nodiscard]] bool mayOverwrite(const std::string& file);
    void showState();
    void failed();
    void warn(const QString& reason);

    CaptureFrame frame_;
    std::unique_ptr<ScenarioCapture> capture_;
    std::string startSetup_; ///< empty after it has been shown
    QAction action_;
    PlainLabel sign_{nullptr};
};

} // namespace ko
