#pragma once

#include "schedule/Recording.h"

namespace ko {

/// The five start and stop options, and the controls that they enable.
class StartStop {
public:
    /// Sets the options' event handlers.
    StartStop(Page& page, Support& support, Actions& actions, Recording& recording);

    /// Enables the controls of the selected start option and disables the others; unless the start is at a time,
    /// selects a stop after a duration. Does not clear the trigger source while the page is being built. Reports its
    /// own failures.
    void enableStartControls();

    /// Enables the controls of the selected stop option and disables the others; for a stop at a time, fills in a stop
    /// time that is missing or not later than the start, except while the page is being built. Reports its own
    /// failures.
    void enableStopControls();

private:
    void startClicked(std::string_view procedure, std::int32_t mode);
    void stopClicked(std::string_view procedure, std::int32_t mode);
    void optionGotFocus(std::string_view procedure);
    void followFilled(bool isOther);
    Recording::Result write(const Steps& step, StartStopSettings change);
    bool forceStopAfter();

    Page& page_;
    Support& support_;
    Actions& actions_;
    Recording& recording_;
};

} // namespace ko
