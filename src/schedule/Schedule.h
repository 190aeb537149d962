#pragma once

#include "schedule/DurationEntry.h"
#include "schedule/Estimate.h"
#include "schedule/Plan.h"
#include "schedule/StartStop.h"
#include "schedule/TimeEntries.h"
#include "schedule/WhatFits.h"

namespace ko {

/// Start and stop of the recording, its duration and its disk space.
class Schedule {
public:
    /// Sets the event handlers of its controls. Referenced objects must outlive the schedule; `dialog` returns the
    /// component's date-and-time dialog.
    Schedule(Page& page, Support& support, Actions& actions, TimeEntries::Dialog dialog);

    /// See `CapturedSettings`.
    void captureStartStop() { captured_.capture(); }

    /// Writes one set of start and stop settings to every driver with a timebase, and shows what the first of them then
    /// holds; without a timebase: start immediately, stop after 10 seconds. Called while the page is being loaded.
    void loadStartStop(const Steps& step);

    /// Enables the controls that apply to the loaded settings; a later refusal returns to these settings.
    void loaded(const Steps& step);

    [[nodiscard]] Estimate& estimate() { return estimate_; }
    [[nodiscard]] WhatFits& whatFits() { return whatFits_; }
    [[nodiscard]] Plan& plan() { return plan_; }
    /// `txtDuration`.
    [[nodiscard]] NumberEntry& duration() { return duration_; }

private:
    [[nodiscard]] StartStopSettings settingsToApply(const Steps& step);
    [[nodiscard]] StartStopSettings applyStartStop(const Steps& loading);
    void show(const Steps& step);

    Page& page_;
    Support& support_;
    CapturedSettings captured_;
    Recording recording_;
    StartStop startStop_;
    DurationEntry duration_;
    TimeEntries times_;
    Estimate estimate_;
    WhatFits whatFits_;
    Plan plan_;
    StartStopSettings loaded_;
};

} // namespace ko
