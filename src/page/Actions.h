#pragma once

#include "page/LimitRefusal.h"

#include <cstdint>
#include <string>

namespace ko {

struct Quantity;

/// Requests of one section of the page to another, implemented by the document.
class Actions {
public:
    /// Notifies the host that the document's properties have changed, unless the page is being loaded. Failures reach
    /// the caller.
    virtual void markChanged() = 0;

    /// Updates the derived labels and checks the 2 GB limit. Returns 0 when the recording fits, else the offset of the
    /// message from `textNumber::page::block`; the plan's sentence is not updated then. Reports its own failures.
    virtual std::int32_t updateDiskSpace() = 0;

    /// Updates the derived labels and the plan whether or not the recording fits, for values that stay in force.
    /// Reports its own failures.
    virtual void refreshEstimate() = 0;

    /// As `refreshEstimate`, for values that Escape restored without a check of the limit: beyond it the figures are
    /// not available, and the page shows what would fit, as after opening.
    virtual void refreshRestored() = 0;

    /// Shows and offers the settings that would fit in place of a refused change, after the message and after the old
    /// values are restored. Reports its own failures.
    virtual void tellWhatFits(const LimitRefusal& refusal) = 0;

    /// Sets a quantity of every driver, as the user does in the comparison of the drivers. Reports its own failures.
    virtual void setAll(const Quantity& quantity, const std::string& value) = 0;

    /// Updates the plan's sentence after a change of how the recording starts, unless the page is being loaded.
    /// `updateDiskSpace` also updates it. Reports its own failures.
    virtual void refreshPlan() = 0;

    /// Enable the trigger controls when the recording starts on a trigger, or disable them when it does not;
    /// `onTrigger` is the state of that start option. Report their own failures.
    virtual void enableTriggering(bool onTrigger) = 0;
    virtual void disableTriggering(bool onTrigger) = 0;

    /// Clears the stored trigger channel as the start master's trigger source; does nothing when no channel is stored.
    /// Reports its own failures.
    virtual void clearTriggerSource() = 0;

protected:
    ~Actions() = default;
};

} // namespace ko
