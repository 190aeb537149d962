#pragma once

#include "page/Figures.h"
#include "platform/Locale.h"
#include "widgets/support/Convert.h"

#include <QFrame>
#include <QTimer>

class QLabel;

namespace ko {

/// Returns the free bytes that the user has on the disk of a file, or of the folder in which it will be; none if
/// unknown.
std::optional<double> freeSpaceBeside(const std::string& file);

/// A line below the page with the disk space that the recording needs and the free space on the disk of the set-up; a
/// warning if the recording does not fit. Hidden while one of the two is unknown. Compares again every few seconds,
/// because other programs use the disk, too.
class SpaceGauge : public QFrame {
public:
    /// `locale` must outlive this object.
    SpaceGauge(const Texts& texts, const Locale& locale, QWidget* parent);

    /// Returns the estimate of the page.
    std::function<Figures()> figures;
    /// Returns the set-up file; empty: the program's current folder is meant.
    std::function<std::string()> file;
    /// Called on another thread, because a disk may not answer.
    std::function<std::optional<double>(const std::string& file)> freeSpace = freeSpaceBeside;

    /// Compares when the program is idle. Calls no instrument.
    void refreshLater() { timer_.start(0); }
    /// Stops comparing, for good.
    void stop()
    {
        isStopped_ = true;
        timer_.stop();
    }

private:
    static constexpr int period = 5000; ///< milliseconds

    void refresh();
    void show(std::optional<double> free);
    void show(const QString& needed, const QString& free, bool fits);

    Texts texts_;
    const Locale& locale_;
    QLabel* sign_;
    QLabel* text_;
    QTimer timer_{this};
    bool isAsking_ = false; ///< the disk has not answered yet
    bool isStopped_ = false;
};

} // namespace ko
