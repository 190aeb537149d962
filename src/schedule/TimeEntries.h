#pragma once

#include "schedule/Recording.h"
#include "schedule/SetDateTime.h"

namespace ko {

/// `txtStartTime`, `txtStopTime` and their "..." buttons.
class TimeEntries {
public:
    /// Returns the component's dialog.
    using Dialog = std::function<SetDateTime&()>;

    /// Sets the controls' event handlers.
    TimeEntries(Page& page, Support& support, Recording& recording, Dialog dialog);

private:
    void connect(TextBox& box, std::string_view gotFocus);
    void txtStartTime_Change();
    void txtStopTime_Change();
    void cmdStartTime_Click();
    void cmdStopTime_Click();
    void boxGotFocus(TextBox& box, std::string_view procedure);
    void editDateTime(const Steps& step, TextBox& box, bool oneDayOnly);
    void putBackTimes();
    void showStopTimeInForce(const Steps& step);
    [[nodiscard]] DateTime timeToEdit(const TextBox& box) const;

    Page& page_;
    Support& support_;
    Recording& recording_;
    Dialog dialog_;
};

} // namespace ko
