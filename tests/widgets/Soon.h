#pragma once

#include <QTimer>

namespace ko::test {

/// Calls a function as soon as an event loop runs, for example that of a message box.
class Soon {
public:
    template <class Action> explicit Soon(Action action)
    {
        QObject::connect(&timer_, &QTimer::timeout, action);
        timer_.setSingleShot(true);
        timer_.start(0);
    }

private:
    QTimer timer_;
};

} // namespace ko::test
