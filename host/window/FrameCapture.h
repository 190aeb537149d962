#pragma once

#include "document/ClassFactory.h"
#include "host/scenario/ScenarioCapture.h"
#include "host/setup/SetupFile.h"
#include "widgets/services/QtServices.h"
#include "widgets/support/Convert.h"
#include "widgets/support/PlainText.h"
#include "widgets/support/UserActions.h"

#include <QAction>
#include <QMainWindow>
#include <memory>

namespace ko {

/// What a capture needs of the window in which it happens.
struct CaptureFrame {
    QMainWindow& window;
    const UserActions& actions;
    Texts texts;
    QtServices& services;
    const Platform& platform;
    Component& component;
    std::function<Document&()> document;
    /// Fails with an `InputError` for a file that is open as something else.
    std::function<void(const std::string&)> refuseOwn;
    std::function<bool()> mayLeave;  ///< whether the page may be left; the user has been told when it may not
    std::function<Setup()> present;  ///< the instruments with their present values
    std::function<void()> renewPage; ///< makes another document, which has no instruments and is shown
    std::function<void()> showAgain; ///< takes the page off the screen, hands the instruments over and shows it
};

/// Captures what happens in a frame window as a scenario: its menu entry, its sign in the status line, and the file
/// that is being written, if any. A file that cannot be written ends the capture with a message and nothing else.
class FrameCapture : public QObject {
public:
    explicit FrameCapture(CaptureFrame frame);
    ~FrameCapture() override;

    /// The checkable entry "Capture Scenario..."
    [[nodiscard]] QAction& action() { return action_; }

    /// Captures from here on, with a page that has just been made and was shown without instruments. `setup` is the
    /// file that a replay is going to start with. Fails with an `InputError`.
    void start(const std::string& file, const std::string& setup);
    /// The same at any time, from the instruments' present state on: it is saved as a set-up beside the scenario, and a
    /// new page shows them.
    void startFromHere(const std::string& file);
    void stop();

    /// Fails with an `InputError` when the file is that of the scenario.
    void refuseOwn(const std::string& file) const;

    // What the host is about to do; nothing while nothing is captured.
    /// A command in the words of a scenario, such as `fail`, `heal`, `enable`, `read-only` or `ok-to-leave`.
    void host(const ScenarioWriter::Words& words);
    /// A menu command for the page; pasting takes the clipboard's text along.
    void command(std::int32_t id);
    /// The instruments in `file`, read anew, are about to be shown in place of others.
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
    std::string startSetup_; ///< until it has been shown
    QAction action_;
    PlainLabel sign_{nullptr};
};

} // namespace ko
