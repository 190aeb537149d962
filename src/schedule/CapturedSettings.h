#pragma once

#include "page/Page.h"
#include "page/StartStopSettings.h"

namespace ko {

/// The start and stop settings to write to the next list of drivers: the page's `triggerVars`, and
/// `triggerVarsAreOfFirst`.
class CapturedSettings {
public:
    explicit CapturedSettings(Page& page) : page_(page) {}

    /// Copies the settings of the first driver with a timebase whose four settings can be read to the page's
    /// `triggerVars`, unless the page is read-only; without such a driver they are unchanged. `known` settings of the
    /// first timebase are not read again. A failing driver is skipped without a report.
    void capture(StartStopSettings known = {});

    /// The settings that building the page writes to all drivers: those in `triggerVars` if they are from the first
    /// timebase, else those that it now returns, which are captured when complete. Settings captured from a later
    /// driver, because the first one failed, never replace those of the first.
    [[nodiscard]] StartStopSettings ofFirst(const Steps& step);

    /// The duration of the first timebase in seconds, as last captured; none when it was captured from a later driver.
    [[nodiscard]] std::optional<double> secondsOfFirst() const;

private:
    Page& page_;
};

} // namespace ko
