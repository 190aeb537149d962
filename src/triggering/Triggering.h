#pragma once

#include "page/Drivers.h"
#include "page/TriggerVars.h"
#include "support/Support.h"

#include <optional>

namespace ko {

/// The trigger-line module: one for all documents of a component.
class Triggering {
public:
    explicit Triggering(Support& support) : support_(support) {}

    /// Copies the start and stop settings of the first driver that offers a timebase and answers all four. When no
    /// driver does, `triggerVars` stays as it is. A failing driver is passed over without a report.
    void captureStartStop(Drivers drivers, std::optional<TriggerVars>& triggerVars);

    /// Writes one set of start and stop settings to every driver with a timebase: those of `triggerVars` unless
    /// there are none or the page is read-only, else those of the driver at `dynamicDriverIndex`, or at
    /// `staticDriverIndex` when the first is below 0. A setting that could not be read is not written; without a
    /// dynamic driver the recording does not start on a trigger. Reports its own failures.
    void applyStartStop(Drivers drivers, std::int32_t dynamicDriverIndex, std::int32_t staticDriverIndex,
                        const std::optional<TriggerVars>& triggerVars, bool readOnly);

private:
    Support& support_;
};

} // namespace ko
