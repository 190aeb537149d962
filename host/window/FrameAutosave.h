#pragma once

#include "host/setup/UnsavedSetup.h"
#include "host/window/UnsavedCopies.h"
#include "widgets/support/Delay.h"
#include "widgets/support/UserActions.h"

#include <QTimer>
#include <future>
#include <optional>

namespace ko {

class SetupSession;
class UserQuestions;
enum class Recovery;

/// Keeps unsaved changes of the open set-up in a copy of their own, soon after each change, and offers them after the
/// program has ended without asking. The copy is removed when nothing is unsaved any more. It is written by a thread,
/// so that a slow disk does not stop the window.
class FrameAutosave : public QObject {
public:
    /// `folder` is where the copies of all windows are; if empty, none are kept. All arguments must outlive this
    /// object.
    FrameAutosave(const UserActions& actions, SetupSession& session, std::string folder);
    /// Keeps the copy, unless `end` has been called.
    ~FrameAutosave() override;

    /// Called after the set-up or its changed mark may have changed.
    void changed();
    /// Offers the copies that other programs have left, one after the other, until one has been restored in place of
    /// the open set-up.
    void offer(UserQuestions& questions);
    /// Throws an `InputError` if the file is the copy, which is removed after saving.
    void refuseOwn(const std::string& file) const;
    /// Called when the window has been closed: removes the copy, for good.
    void end();

    /// Called with the reason when a copy cannot be written or removed, once until it works again.
    std::function<void(const std::string& reason)> failed;

    /// Sets the time from a change to the copy.
    void setDelay(int milliseconds) { timer_.setInterval(milliseconds); }

private:
    enum class Answered { Next, Done };

    static constexpr int usualDelay = 2000; ///< milliseconds

    void write();
    void beginWriting();
    /// Does nothing while the copy is still being written.
    void written();
    void drop();
    void removeReplaced();
    bool attempt(const std::function<void()>& act);
    void fail(const std::string& reason);
    Answered offer(UnsavedCopy& copy, UserQuestions& questions, const UserActions::Action& action);
    static Recovery ask(const UnsavedCopy& copy, const UnsavedSetup& unsaved, UserQuestions& questions);
    Answered restore(UnsavedCopy& copy, const UnsavedSetup& unsaved, UserQuestions& questions,
                     const UserActions::Action& action);

    const UserActions& actions_;
    SetupSession& session_;
    std::string folder_;
    Delay timer_;
    QTimer looking_; ///< whether the copy has been written
    std::optional<UnsavedCopy> copy_;
    std::optional<UnsavedCopy> replaced_;      ///< to be removed when it is no longer being written
    std::shared_ptr<const UnsavedSetup> kept_; ///< what the copy holds, or will hold
    bool hasFailed_ = false;
    std::future<std::string> writing_; ///< yields the reason of a failure; waits when it is destroyed
};

} // namespace ko
