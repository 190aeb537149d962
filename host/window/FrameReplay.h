#pragma once

#include "host/window/ReplayReport.h"
#include "host/window/WindowStage.h"

#include <QAction>
#include <QObject>

namespace ko {

/// Plays scenarios on the page of a window: the menu entry, what the user sees meanwhile, and the report. Message boxes
/// and dialogs are answered by the script, and the user's input is refused; Escape stops the script.
class FrameReplay : public QObject {
public:
    explicit FrameReplay(ReplayFrame frame);

    /// The menu entry "Run Scenario...".
    [[nodiscard]] QAction& action() { return action_; }

    /// Plays a scenario, after asking about unsaved changes if it opens a set-up. Throws an `InputError` and plays
    /// nothing if the file cannot be read, or contains a line that a window cannot play: another language of numbers
    /// and dates, a new document, printing or recording.
    ReplayResult play(const std::string& file);
    /// Sets the time for which each action of the host and the user is shown.
    void setPace(int milliseconds) { pace_ = milliseconds; }

private:
    void chooseAndPlay();
    void run(const std::string& file);
    [[nodiscard]] QString fileToPlay();
    bool proceed(const QString& name, int line, int milliseconds);
    void warn(const std::string& reason);

    ReplayFrame frame_;
    QAction action_;
    int pace_ = 100;
};

} // namespace ko
