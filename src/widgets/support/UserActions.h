#pragma once

#include "widgets/support/Guarded.h"

#include <memory>

class QWidget;

namespace ko {

/// What the user does on a surface, a view or a window, while it is being done. It may wait for the user in a message
/// box or a dialog, and the host may destroy the surface meanwhile, in the middle of an event of one of its widgets.
/// The widgets then stay, hidden, until the actions in progress have returned; whoever is in one asks whether it is
/// over before touching anything of the surface again.
class UserActions {
    struct State;

public:
    UserActions();
    ~UserActions();
    UserActions(const UserActions&) = delete;
    UserActions& operator=(const UserActions&) = delete;

    /// One of them, from its beginning to its return.
    class Action {
    public:
        explicit Action(const UserActions& actions);
        ~Action();
        Action(const Action&) = delete;
        Action& operator=(const Action&) = delete;

        /// Whether the surface is gone.
        [[nodiscard]] bool isOver() const;

    private:
        std::shared_ptr<State> state_;
    };

    /// Runs what the user does. Whether the surface is still there then.
    template <class Act> bool run(Act&& act) const
    {
        const Action action(*this);
        guarded(std::forward<Act>(act));
        return !action.isOver();
    }

    /// `kept` lives as long as the surface and what is left of it.
    void keep(std::shared_ptr<void> kept);

    /// For the destructor of the surface: whether its widgets were taken over, because an action is in progress.
    bool end(QWidget& surface);

private:
    std::shared_ptr<State> state_;
};

} // namespace ko
