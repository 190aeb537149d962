#pragma once

#include "host/instruments/DriverHealth.h"
#include "widgets/support/Convert.h"

#include <QFrame>
#include <QTimer>

class QLabel;
class QListWidget;
class QPushButton;

namespace ko {

/// Which instruments fail at present, a line each: what failed last, when and why; and a button that has the page try
/// again. It is there only while there is something to say. Lines come at once and go once it has been quiet for a
/// moment, so that nothing moves while the user types.
class FailureStrip : public QFrame {
public:
    FailureStrip(const Texts& texts, QWidget* parent);

    /// Something else fails; the strip shows it as soon as the program is idle.
    void refreshLater();

    /// Goes at once and without a word: what it named is no longer there.
    void forget();

    /// What to show.
    std::function<std::vector<DriverFailure>()> failing;
    /// The button has been pressed.
    std::function<void()> tryAgain;
    /// The strip has become higher, or has appeared.
    std::function<void()> grown;
    /// The strip is about to go while it has the focus.
    std::function<void()> leaving;

private:
    static constexpr int mostLines = 3;
    static constexpr int quietTime = 2000; ///< milliseconds

    void makeLayout();
    void refresh();
    void showLines(const std::vector<DriverFailure>& failures);
    void makeRoom(int lines);
    void settle();
    void announce(const std::vector<DriverFailure>& failures);
    [[nodiscard]] QString lineOf(const DriverFailure& failure) const;

    QString countText_, lineText_, moreText_, allAnswerText_;
    QLabel* heading_;
    QLabel* more_;
    QListWidget* list_;
    QPushButton* button_;
    QTimer idle_, quiet_;
    std::vector<std::size_t> told_; ///< the drivers that have been announced
    int room_ = 0;                  ///< lines that the list has room for
};

} // namespace ko
