#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <concepts>
#include <exception>
#include <utility>

namespace ko {

/// Receives failures that were not handled. Implemented by the application object, if at all.
class LeftOvers {
public:
    virtual ~LeftOvers() = default;

    /// `doing` names the user's action; empty when unknown. May be called in the middle of any event.
    virtual void leftOver(const QString& doing, const QString& reason) noexcept = 0;
};

/// Passes a failure to the application's `LeftOvers`, and logs it.
void tellLeftOver(const QString& doing, const std::exception_ptr& failure) noexcept;

/// The visible name of this menu entry, button or other widget.
QString captionOf(const QObject* sender);

/// Runs a function called by the toolkit, through whose event loop nothing may be thrown: passes a failure to
/// `LeftOvers` and returns normally.
template <class Function> void guarded(Function&& function, const QString& doing = {}) noexcept
{
    try {
        std::forward<Function>(function)();
    } catch (...) {
        tellLeftOver(doing, std::current_exception());
    }
}

/// The callable connected to a signal; takes as many of the signal's arguments as `Act` does.
template <class Act> struct GuardedSlot {
    QPointer<const QObject> sender;
    Act act;

    template <class... Arguments>
    requires std::invocable<Act&, Arguments...>
    void operator()(Arguments&&... arguments) noexcept
    {
        try {
            act(std::forward<Arguments>(arguments)...);
        } catch (...) {
            tellLeftOver(captionOf(sender), std::current_exception());
        }
    }
};

/// Connects a signal to a function that may fail. A failure is passed to `LeftOvers` under the sender's caption.
template <class Sender, class Signal, class Act>
void onSignal(const Sender* sender, Signal signal, const QObject* context, Act act,
              Qt::ConnectionType type = Qt::AutoConnection)
{
    QObject::connect(sender, signal, context, GuardedSlot<Act>{sender, std::move(act)}, type);
}

} // namespace ko
