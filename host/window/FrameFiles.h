#pragma once

#include "host/setup/SetupSession.h"
#include "host/toolkit/FileWatch.h"
#include "host/toolkit/RecentFiles.h"
#include "host/window/FrameParts.h"
#include "host/window/UserQuestions.h"
#include "widgets/support/UserActions.h"

class QDragEnterEvent;
class QDropEvent;
class QMainWindow;

namespace ko {

/// The set-up files of a frame window: opens and saves set-ups, asks the user about unsaved changes, watches the open
/// file for changes by other programs, keeps the list of recent files, and shows the set-up's name in the window's
/// title.
class FrameFiles : public PropertyNotifySink {
public:
    /// All arguments must outlive this object.
    FrameFiles(QMainWindow& window, const UserActions& actions, FrameParts& parts, FrameMemory& memory);

    /// The open set-up. Its owner sets `mayLeavePage` and `checkFree`.
    [[nodiscard]] SetupSession& session() { return session_; }
    [[nodiscard]] RecentFiles& recent() { return recent_; }
    [[nodiscard]] UserQuestions& questions() { return *questions_; }
    /// Replaces the way in which the user is asked.
    void setQuestions(std::unique_ptr<UserQuestions> questions) { questions_ = std::move(questions); }

    /// Called after a file has been loaded, to show its instruments.
    std::function<void()> showInstruments;
    /// Called after every change that the document has accepted.
    std::function<void()> changed;

    /// Opens a set-up after asking the page and the user. Shows the user the reason if the file is refused.
    void open(const QString& file);
    void chooseAndOpen();
    /// Begins a new set-up with a template after asking.
    void beginNew(const std::string& templateName);
    /// As `open`; offers to remove a file that cannot be found from the list of recent files.
    void openRecent(const QString& file);
    /// Accepts the drag of exactly one local file.
    static void acceptDrag(QDragEnterEvent& event);
    void openDropped(QDropEvent& event);

    /// Closes the set-up after asking the page and the user.
    void close();
    void save();
    void saveAs();
    [[nodiscard]] bool mayLeave() { return session_.mayLeave(*questions_); }
    /// Offers to reload a set-up that another program has changed, unless a dialog is open.
    void offerReload();

    /// Marks the set-up as changed.
    void OnChanged() override;

private:
    void showLoaded();
    void remember();
    void showTitle();

    QMainWindow& window_;
    const UserActions& actions_;
    FrameParts& parts_;
    SetupSession session_;
    RecentFiles recent_;
    FileWatch watch_{[this] { offerReload(); }};
    std::unique_ptr<UserQuestions> questions_;
};

} // namespace ko
