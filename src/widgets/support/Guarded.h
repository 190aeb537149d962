#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <concepts>
#include <exception>
#include <utility>

namespace ko {

/// Hears of failures that nothing has handled. The application object is asked whether it is one.
class LeftOvers {
public:
    virtual ~LeftOvers() = default;

    /// `doing` is what the user wanted, empty where that is not known. Called in the middle of any event.
    virtual void leftOver(const QString& doing, const QString& reason) noexcept = 0;
};

/// Hands a failure to the application's `LeftOvers`, and logs it.
void tellLeftOver(const QString& doing, const std::exception_ptr& failure) noexcept;

/// What a user calls this menu entry, button or other widget.
QString captionOf(const QObject* sender);

/// Runs what the toolkit has called. Nothing may be thrown through the toolkit's event loop: a failure that gets
/// this far is left over, and the caller goes on.
template <class Function> void guarded(Function&& function, const QString& doing = {}) noexcept
{
    try {
        std::forward<Function>(function)();
    } catch (...) {
        tellLeftOver(doing, std::current_exception());
    }
}

/// What a signal is connected with; takes as many of the signal's arguments as `Act` does.
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

/// Connects a signal with what may fail. A failure is left over under the sender's caption.
template <class Sender, class Signal, class Act>
void onSignal(const Sender* sender, Signal signal, const QObject* context, Act act,
              Qt::ConnectionType type = Qt::AutoConnection)
{
    QObject::connect(sender, signal, context, GuardedSlot<Act>{sender, std::move(act)}, type);
}

} // namespace ko
