#pragma once

#include "host/recording_view/SpaceGauge.h"
#include "host/toolkit/FrameMemory.h"
#include "host/window/FrameAutosave.h"
#include "host/window/FrameCapture.h"
#include "host/window/FrameDocks.h"
#include "host/window/FrameFiles.h"
#include "host/window/FrameHistory.h"
#include "host/window/FrameInstruments.h"
#include "host/window/FramePrinting.h"
#include "host/window/FrameRecording.h"
#include "host/window/FrameReplay.h"
#include "host/window/PageHost.h"
#include "host/window/StartScreen.h"

#include <QMainWindow>

class QDockWidget;

namespace ko {

/// The reference host's frame: a window with the component's page, menus, docks, a status line and help. It makes and
/// connects the classes that do the work, handles the toolkit's events and has the menus. It may be destroyed while one
/// of its dialogs or message boxes is open; the action that has opened the dialog then ends.
class FrameWindow : public QMainWindow {
public:
    /// `language` is passed to the component, whose exceptions reach the caller. `memory` is the file that keeps the
    /// window's geometry, its docks and the recent files; if empty, they are not kept.
    explicit FrameWindow(const std::string& language, const std::string& memory = {});
    ~FrameWindow() override;

    /// Opens a set-up instead of the present one without asking. Throws an `InputError` if the file is refused; nothing
    /// has changed then.
    void open(const std::string& file) { session().load(file); }
    /// Restores the geometry of the window and its docks; returns false if none is kept.
    bool restorePlace();

    [[nodiscard]] FrameFiles& files() { return files_; }
    [[nodiscard]] FrameAutosave& autosave() { return autosave_; }
    [[nodiscard]] FramePrinting& printing() { return printing_; }
    [[nodiscard]] FrameDocks& docks() { return docks_; }
    [[nodiscard]] FrameCapture& capture() { return capture_; }
    [[nodiscard]] FrameReplay& replay() { return replay_; }
    [[nodiscard]] FrameHistory& history() { return history_; }
    [[nodiscard]] FrameRecording& recording() { return recording_; }
    [[nodiscard]] FrameInstruments& instrumentList() { return list_; }
    [[nodiscard]] SpaceGauge& space() { return *space_; }
    [[nodiscard]] StartScreen& start() { return *start_; }

    [[nodiscard]] Document& document() { return page_.document(); }
    [[nodiscard]] PageWidget& page() { return page_.widget(); }
    [[nodiscard]] QtServices& services() { return parts_->services; }
    [[nodiscard]] SetupSession& session() { return files_.session(); }
    [[nodiscard]] InstrumentsView& instruments() { return docks_.instruments(); }
    [[nodiscard]] DriverLog& driverLog() { return docks_.log(); }
    [[nodiscard]] QString text(int number) const { return parts_->text(number); }

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    [[nodiscard]] CaptureFrame captureFrame();
    [[nodiscard]] ReplayFrame replayFrame();
    void joinFiles();
    void joinHistory();
    void revertToSaved();
    void joinSpace();
    void joinRecording();
    /// Charts the channels that are selected in the instruments' dock.
    void chooseCharted();
    /// Makes the page read-only for the set-up of a recording, and editable for the next one.
    void lockOpenedRecording();
    void unlockSavedSetup();
    void joinStart();
    void joinAutosave();
    /// Shows the start screen instead of the page while no set-up is open.
    void showPageOrStart();
    /// Shows the session's instruments in the docks and on the page.
    void handOver(bool isSaved = true);
    /// As `handOver`; a set-up that was changed stays so.
    void handOverAsIs();
    void rememberPlace();

    void makeMenus();
    void makeFileMenu();
    void makeNewMenu(QMenu& menu);
    void makeRecentMenu(QMenu& menu);
    void fillRecentMenu(QMenu& menu);
    void makeEditMenu();
    void makeViewMenu();
    void addDock(QMenu& menu, QDockWidget& dock, int label);
    void makeHelpMenu();
    QAction& addEntry(QMenu& menu, int label, const QKeySequence& key, std::function<void()> act);
    /// Adds an entry that is disabled and does nothing unless there is a set-up.
    void addSetupEntry(QMenu& menu, int label, const QKeySequence& key, std::function<void()> act);
    /// Adds an entry that is disabled and does nothing unless it is possible.
    void addEntryWhile(const std::function<bool()>& isPossible, QMenu& menu, int label, const QKeySequence& key,
                       std::function<void()> act);
    void showAbout();

    // A command goes to the dock that has the focus, or to the page.
    [[nodiscard]] const QWidget* focused() const;
    [[nodiscard]] bool isAvailable(std::int32_t command);
    void runCommand(std::int32_t command);

    UserActions actions_;
    FrameMemory memory_;
    std::shared_ptr<FrameParts> parts_;
    FrameFiles files_{*this, actions_, *parts_, memory_};
    FrameCapture capture_{captureFrame()};
    PageHost page_{*this, actions_, parts_, capture_, files_};
    FrameHistory history_{*this, actions_, *parts_, page_, session(), capture_};
    FrameDocks docks_{*this, *parts_, page_, session(), capture_, history_};
    FrameRecording recording_{*this, actions_, *parts_, page_, files_, capture_};
    QAction* readOnly_ = nullptr;
    bool isLockedForRecording_ = false; ///< the page is read-only because its set-up is that of a recording
    FrameInstruments list_{*this, actions_, *parts_, page_, session(), capture_, history_, docks_};
    SpaceGauge* space_ = new SpaceGauge(parts_->texts(), parts_->platform.locale, this);
    StartScreen* start_ = new StartScreen(parts_->texts(), this);
    FrameAutosave autosave_{actions_, session(), memory_.folder()};
    FrameReplay replay_{replayFrame()};
    FramePrinting printing_{*this, actions_, *parts_, page_, session()};
};

} // namespace ko
