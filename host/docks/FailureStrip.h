#pragma once

#include "host/instruments/DriverHealth.h"
#include "widgets/support/Convert.h"
#include "widgets/support/Delay.h"

#include <QFrame>
#include <string>
#include <vector>

class QLabel;
class QListWidget;
class QPushButton;

namespace ko {

/// Lists the instruments that fail at present, one per line with the time, the setting that
/// could not be read or set last, and the reason, and has a
/// button to try again. Hidden unless an instrument fails. Lines appear at once, but space is given up only after two
/// seconds without changes, so that the page does not move while the user types.
class FailureStrip : public QFrame {
public:
    /// A line, and what it is about: the same failure has the same key later.
    struct Line {
        std::string key;
        QString text;
    };

    FailureStrip(const Texts& texts, QWidget* parent);

    /// Updates the strip when the program is idle. To be called when the result of `failing` has changed.
    void refreshLater();

    /// Hides the strip at once, without an announcement to screen readers, because its instruments are gone.
    void forget();

    /// Returns the failures to show.
    std::function<std::vector<DriverFailure>()> failing;
    /// Returns what has failed in the recording, shown below.
    std::function<std::vector<Line>()> recordingFailures;
    /// Called when the button is pressed.
    std::function<void()> tryAgain;
    /// Called after the strip has grown or appeared.
    std::function<void()> grown;
    /// Called before the strip is hidden while it has the focus.
    std::function<void()> leaving;

private:
    static constexpr int mostLines = 3;
    static constexpr int quietTime = 2000; ///< milliseconds

    void makeLayout();
    void refresh();
    [[nodiscard]] std::vector<Line> lines() const;
    void showLines(const std::vector<Line>& lines);
    void showHeading(int count);
    void makeRoom(int lines);
    void settle();
    void announce(const std::vector<Line>& lines);
    [[nodiscard]] QString lineOf(const DriverFailure& failure) const;

    Texts texts_;
    QLabel* sign_;
    QLabel* heading_;
    QLabel* more_;
    QListWidget* list_;
    QPushButton* button_;
    Delay idle_{this}, quiet_{this};
    std::vector<std::string> announced_; ///< keys of the lines announced to screen readers
    int room_ = 0;                       ///< height of the list in lines
};

} // namespace ko
