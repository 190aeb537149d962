#pragma once

#include "page/Page.h"
#include "page/StartStopSettings.h"

namespace ko {

/// The start and stop settings that a further list of drivers gets: the page's `triggerVars`, and where they are from.
class CapturedSettings {
public:
    explicit CapturedSettings(Page& page) : page_(page) {}

    /// Copies the settings of the first driver that offers a timebase and answers all four to the page's `triggerVars`,
    /// unless the page is read-only; without such a driver they stay as they are. What the first timebase is `known` to
    /// hold is not asked again. A failing driver is passed over without a report.
    void capture(StartStopSettings known = {});

    /// The settings that a page which is built hands on to all drivers: those in `triggerVars` where the first timebase
    /// gave them, else what it answers now, which is captured when it is complete. What was captured from a later
    /// driver, because the first one failed, never replaces the settings of the first.
    [[nodiscard]] StartStopSettings ofFirst(const Steps& step);

    /// The duration of the first timebase in seconds, as captured last; none where that came from a later driver.
    [[nodiscard]] std::optional<double> secondsOfFirst() const;

private:
    Page& page_;
    bool areOfFirst_ = false; ///< `triggerVars` came from the first timebase when they were captured last
};

} // namespace ko
