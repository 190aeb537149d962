#pragma once

#include "page/Actions.h"
#include "page/Page.h"
#include "support/Steps.h"
#include "support/Support.h"

namespace ko {

/// Start and stop of the recording, its duration and the disk space that it takes.
class Schedule {
public:
    /// Takes over the events of its controls. Everything passed in outlives the schedule.
    Schedule(Page& page, Support& support, Actions& actions);

    /// Shows the start and stop settings of the first driver that offers a timebase; without one: immediately,
    /// after 10 seconds. The page is being loaded.
    void loadStartStop(const Steps& step);

    /// Shows a duration in seconds in the largest unit that fits.
    void showDuration(double seconds);

    /// `start` plus `amount` units ('s', 'n', 'h', 'd') as General Date text. Failures reach the caller.
    [[nodiscard]] std::string computeStopTime(char unit, double amount, DateTime start) const;

    /// The duration entered on the page, in seconds; may be 0 or negative when stopping at a time. Failures reach
    /// the caller.
    [[nodiscard]] double getDurationSeconds() const;

    /// See `Actions::updateDiskSpace`.
    std::int32_t updateDiskSpace();

private:
    void connectFocusEvents();
    void showStartMode(const Steps& step, std::int32_t start, std::int32_t stop, DateTime time, double seconds);
    void clearHint(const Steps& step);
    [[nodiscard]] DateTime timeIn(const TextBox& box) const;

    void txtDuration_GotFocus();
    void cmbInterval_GotFocus();
    void timeBoxGotFocus(TextBox& box, std::string_view procedure);
    void optionGotFocus(std::string_view procedure);

    Page& page_;
    Support& support_;
    Actions& actions_;
    std::int32_t intervalAtFocus_ = -1;
};

} // namespace ko
