#pragma once

#include <QObject>

namespace ko {

/// Keeps the user's input from the program's windows during its life, except from message boxes. Remembers that the
/// user has pressed Escape or wanted to close a window.
class InputLock : public QObject {
public:
    InputLock();
    ~InputLock() override;
    InputLock(const InputLock&) = delete;
    InputLock& operator=(const InputLock&) = delete;

    [[nodiscard]] bool isEscaped() const { return escaped_; }

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool escaped_ = false;
};

} // namespace ko
