#pragma once

#include "widgets/support/Guarded.h"

#include <functional>
#include <memory>

class QWidget;

namespace ko {

/// The user's actions in progress on a surface, a view or a window. An action may wait in a message box or a dialog,
/// during which the host may destroy the surface, in the middle of an event of one of its widgets. The widgets are then
/// hidden and kept until the actions in progress have returned; timers among their children are stopped. Code in an
/// action must check `isOver` before it uses the surface again.
class UserActions {
    struct State;

public:
    UserActions();
    ~UserActions();
    UserActions(const UserActions&) = delete;
    UserActions& operator=(const UserActions&) = delete;

    /// An action in progress, for the lifetime of this object.
    class Action {
    public:
        explicit Action(const UserActions& actions);
        ~Action();
        Action(const Action&) = delete;
        Action& operator=(const Action&) = delete;

        /// Whether the surface has been destroyed.
        [[nodiscard]] bool isOver() const;

    private:
        std::shared_ptr<State> state_;
    };

    /// Runs a user's action. Returns whether the surface still exists afterwards.
    template <class Act> bool run(Act&& act) const
    {
        const Action action(*this);
        guarded(std::forward<Act>(act));
        return !action.isOver();
    }

    [[nodiscard]] bool areInProgress() const;
    /// `done` is called each time when the last action in progress has returned, unless the surface has been destroyed.
    void whenDone(std::function<void()> done);

    /// Keeps `kept` alive until the surface and its widgets have been destroyed.
    void keep(std::shared_ptr<void> kept);

    /// Called by the destructor of the surface. Takes over the widgets when an action is in progress; returns whether
    /// it did.
    bool end(QWidget& surface);

private:
    std::shared_ptr<State> state_;
};

} // namespace ko
