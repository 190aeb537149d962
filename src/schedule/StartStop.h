#pragma once

#include "schedule/Recording.h"

namespace ko {

/// The five options of start and stop, and which controls can be used with them.
class StartStop {
public:
    /// Takes over the options' events.
    StartStop(Page& page, Support& support, Actions& actions, Recording& recording);

    /// Lets the user at the controls that go with the selected start; a start that is not at a time is stopped after
    /// a duration. On a page that is being built the trigger source is not cleared. Reports its own failures.
    void enableStartControls();

    /// Lets the user at the controls that go with the selected stop; a stop at a time gets a time where it has none
    /// that is later than the start, but on a page that is being built. Reports its own failures.
    void enableStopControls();

private:
    void startClicked(std::string_view procedure, std::int32_t mode);
    void stopClicked(std::string_view procedure, std::int32_t mode);
    void optionGotFocus(std::string_view procedure);
    Recording::Result write(const Steps& step, StartStopSettings change);
    bool forceStopAfter();

    Page& page_;
    Support& support_;
    Actions& actions_;
    Recording& recording_;
};

} // namespace ko
