#pragma once

#include "schedule/DurationEntry.h"
#include "schedule/Estimate.h"
#include "schedule/Plan.h"
#include "schedule/StartStop.h"
#include "schedule/TimeEntries.h"
#include "schedule/WhatFits.h"

namespace ko {

/// Start and stop of the recording, its duration and the disk space that it takes.
class Schedule {
public:
    /// Takes over the events of its controls. Everything passed in outlives the schedule; `dialog` answers the
    /// component's date-and-time dialog.
    Schedule(Page& page, Support& support, Actions& actions, TimeEntries::Dialog dialog);

    /// Shows the start and stop settings of the first driver that offers a timebase; without one: immediately,
    /// after 10 seconds. A stop at a time that the start does not allow is taken back in the drivers, too. The page
    /// is being loaded.
    void loadStartStop(const Steps& step);

    /// What the page shows after it was loaded is what a later refusal returns to.
    void loaded();

    [[nodiscard]] StartStop& startStop() { return startStop_; }
    [[nodiscard]] Estimate& estimate() { return estimate_; }
    [[nodiscard]] WhatFits& whatFits() { return whatFits_; }
    [[nodiscard]] Plan& plan() { return plan_; }
    /// `txtDuration`.
    [[nodiscard]] NumberEntry& duration() { return duration_; }

private:
    /// The start and stop settings as a driver holds them.
    struct Settings {
        std::int32_t start = startMode::immediately;
        std::int32_t stop = stopMode::afterDuration;
        DateTime time;
        double seconds = 10.0;
    };

    [[nodiscard]] Settings read(const Steps& step) const;
    void show(const Steps& step, const Settings& settings);
    void stopAfterDuration(const Steps& step);

    Page& page_;
    Support& support_;
    Actions& actions_;
    Recording recording_;
    StartStop startStop_;
    DurationEntry duration_;
    TimeEntries times_;
    Estimate estimate_;
    WhatFits whatFits_;
    Plan plan_;
    double loadedSeconds_ = 0.0;
};

} // namespace ko
