#pragma once

#include "host/setup/History.h"
#include "host/window/FrameParts.h"
#include "widgets/support/UserActions.h"

#include <QAction>
#include <QDockWidget>
#include <QPointer>
#include <QUndoStack>
#include <functional>
#include <memory>

class QMainWindow;
class QMenu;
class QUndoView;

namespace ko {

class FrameCapture;
class PageHost;
class SetupSession;

/// Undo and redo in the frame window: the entries of the menu Edit, the dock with all steps, and the changed mark of
/// the set-up. The steps are those of a `History`; the toolkit's stack shows them.
class FrameHistory : public QObject {
public:
    /// Makes the dock, hidden, and adds it to the window. All arguments must outlive this object.
    FrameHistory(QMainWindow& window, const UserActions& actions, FrameParts& parts, PageHost& page,
                 SetupSession& session, FrameCapture& capture);
    ~FrameHistory() override;

    /// Adds the entries Undo and Redo, which show the texts of their steps.
    void addEntries(QMenu& menu);
    [[nodiscard]] QDockWidget& dock() { return *dock_; }
    [[nodiscard]] const History& steps() const { return history_; }
    /// For scenarios that are played in the window.
    [[nodiscard]] History& history() { return history_; }

    /// Begins a history with the instruments of the session that the page has just shown.
    void begin(bool isSaved = true);
    /// Called before the page is replaced: forgets all steps.
    void end() { history_.end(); }
    /// Called when the set-up has been saved.
    void saved();
    /// Called after a change that is saved with the set-up but is no step.
    void changedOtherwise() { history_.setUnclean(); }

    /// Runs a change of the instruments outside the page as one step.
    void edit(const std::function<void()>& change);
    /// Runs a call of the host after which the page may write to the instruments; that is no step.
    void hostCall(const std::function<void()>& call);

    /// As the entries of the menu.
    void undo();
    void redo();
    /// Undoes or redoes until the set-up is as it was saved. Returns false if no step leads there.
    bool revertToSaved();

    /// As `edit`, to these instruments with these settings. Returns whether they are changed.
    bool edit(const HeldState& to);

    /// See `History`; set by the window.
    std::function<void()> rebuild, restored;
    std::function<void(const HostInstruments& drivers, History::HandOver how)> handOver;
    [[nodiscard]] bool isLocked() const;
    /// Called when the set-up or its changed mark may have changed.
    std::function<void()> changed;

private:
    class Step;

    /// Ends the step in progress, then calls `call`. Returns false if this object has been destroyed meanwhile.
    bool finishAnd(const std::function<void()>& call);
    void settle();
    bool endEntry();
    void moveTo(std::size_t position);
    void show();
    void showSteps();
    void showEntries();
    void tellRefused(const std::string& instrument, const std::string& reason);

    QMainWindow& window_;
    const UserActions& actions_;
    FrameParts& parts_;
    PageHost& page_;
    SetupSession& session_;
    FrameCapture& capture_;
    History history_;
    QPointer<QDockWidget> dock_;
    QUndoStack* stack_; ///< shows the steps; its commands do nothing
    QUndoView* view_;
    QAction undo_, redo_;
    bool isShowing_ = false; ///< the stack follows the history
    std::shared_ptr<int> life_ = std::make_shared<int>();
};

} // namespace ko
