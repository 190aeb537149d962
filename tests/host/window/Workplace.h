#pragma once

#include "RandomUser.h"
#include "host/window/FrameWindow.h"

#include <QTemporaryDir>
#include <memory>

class QFileDialog;

namespace ko::test {

/// A folder with set-ups, a window on it and the user of both. The window may be destroyed in any of its dialogs.
class Workplace {
public:
    Workplace();
    ~Workplace();

    /// Performs a random step: an input, something that the user of the window does on purpose, or something that
    /// happens to it. Afterwards there is a window, without a dialog.
    void step(std::uint32_t seed);
    /// Handles dialogs and message boxes of `act` at random; see `RandomUser::have`.
    void have(const std::function<void()>& act);

    [[nodiscard]] bool hasWindow() const { return window_ != nullptr; }
    [[nodiscard]] FrameWindow& window() const { return *window_; }
    [[nodiscard]] Page& page() const { return window_->document().page(); }
    [[nodiscard]] RandomUser& user() { return *user_; }
    [[nodiscard]] Draw& draw() { return user_->draw; }

    /// Returns the path of a file in the folder; `name` need not exist.
    [[nodiscard]] QString path(const QString& name) const { return folder_.filePath(name); }
    void write(const QString& name, const QByteArray& content) const;
    /// Presses a key where the keyboard's focus is.
    void press(const QKeySequence& key);

    /// Destroys the window, as a host does; a new one follows after the step.
    void destroy() { window_.reset(); }

private:
    void makeWindow();
    bool answer(QDialog& dialog);
    bool choose(QFileDialog& dialog);

    QTemporaryDir folder_;
    std::unique_ptr<FrameWindow> window_;
    std::unique_ptr<RandomUser> user_;
};

} // namespace ko::test
