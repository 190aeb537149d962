#pragma once

#include <cstdint>

namespace ko {

/// What one section of the page asks of another. The document answers.
class Actions {
public:
    /// Tells the host that the document's properties have changed, unless the page is being loaded. Failures reach
    /// the caller.
    virtual void markChanged() = 0;

    /// Brings the derived labels up to date and checks the 2 GB limit: 0 when the recording fits, else the number
    /// that, added to `textNumber::page::block`, is the message's; the plan's sentence stays as it was then. Reports
    /// its own failures.
    virtual std::int32_t updateDiskSpace() = 0;

    /// Brings the derived labels up to date with values that are in force whatever the limit says, such as old ones
    /// that were put back. Reports its own failures.
    virtual void refreshEstimate() = 0;

    /// After the message for a code of `updateDiskSpace`, with the old values back in force: tells the user what would
    /// fit, and offers it. Reports its own failures.
    virtual void tellWhatFits(std::int32_t code) = 0;

    /// Brings the plan's sentence in line after what starts the recording has changed, unless the page is being loaded.
    /// The estimate does it by itself. Reports its own failures.
    virtual void refreshPlan() = 0;

    /// Switches the trigger controls on when the recording starts on a trigger, off when it does not; `onTrigger` is
    /// the state of that start option. Report their own failures.
    virtual void enableTriggering(bool onTrigger) = 0;
    virtual void disableTriggering(bool onTrigger) = 0;

    /// Tells the start master that the stored trigger channel is no longer its trigger source; nothing when no channel
    /// is stored. Reports its own failures.
    virtual void clearTriggerSource() = 0;

protected:
    ~Actions() = default;
};

} // namespace ko
