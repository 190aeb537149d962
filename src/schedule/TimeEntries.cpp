#include "schedule/TimeEntries.h"

#include "page/Hints.h"
#include "page/Messages.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"
#include "support/TextNumbers.h"

#include <utility>

namespace ko {

TimeEntries::TimeEntries(Page& page, Support& support, Recording& recording, Dialog dialog)
    : page_(page), support_(support), recording_(recording), dialog_(std::move(dialog))
{
    connect(page.txtStartTime, "txtStartTime_GotFocus");
    connect(page.txtStopTime, "txtStopTime_GotFocus");
    page.txtStartTime.change = [this] { txtStartTime_Change(); };
    page.txtStopTime.change = [this] { txtStopTime_Change(); };
    page.cmdStartTime.click = page.txtStartTime.doubleClick = [this] { cmdStartTime_Click(); };
    page.cmdStopTime.click = page.txtStopTime.doubleClick = [this] { cmdStopTime_Click(); };
}

void TimeEntries::connect(TextBox& box, std::string_view gotFocus)
{
    box.gotFocus = [this, &box, gotFocus] { boxGotFocus(box, gotFocus); };
    box.lostFocus = [this] { page_.editFlags = editFlag::none; };
}

void TimeEntries::boxGotFocus(TextBox& box, std::string_view procedure)
{
    const Steps step(support_.errors, procedure);
    page_.editFlags = editFlag::copy;
    step([&] { setToolTip(page_, support_, noRange, noRange); });
    step([&] { selectAllText(box); });
}

void TimeEntries::txtStartTime_Change()
{
    if (page_.isLoading || page_.isUpdating)
        return;
    const Steps step(support_.errors, "txtStartTime_Change");
    StartStopSettings change;
    const bool known = step([&] {
        change.startTime = recording_.enteredStart();
        if (const auto seconds = recording_.plannedSeconds(); seconds >= 0.0)
            change.duration = toSingle(*seconds);
    });
    if (known)
        recording_.commit(step, change, [this] { putBackTimes(); });
    else
        putBackTimes();
}

void TimeEntries::txtStopTime_Change()
{
    if (page_.isLoading || page_.isUpdating || !page_.optStopTime.value())
        return;
    const Steps step(support_.errors, "txtStopTime_Change");
    StartStopSettings change;
    double seconds = 0.0;
    const bool known = step([&] {
        seconds = recording_.getDurationSeconds();
        change.duration = toSingle(seconds);
    });
    if (!known) {
        putBackTimes();
        return;
    }
    if (seconds <= 0.0) {
        step([&] { showError(support_, textNumber::page::stopNotLater); });
        step([&] { showStopTimeInForce(step); });
        recording_.refreshLabels();
        return;
    }
    change.stopMode = stopMode::atTime;
    recording_.commit(step, change, [this] { putBackTimes(); });
}

void TimeEntries::putBackTimes()
{
    recording_.putBackStartTime();
    recording_.putBackStopTime();
}

void TimeEntries::showStopTimeInForce(const Steps& step)
{
    recording_.putBackStopTime();
    const DateTime start = recording_.timeIn(page_.txtStartTime);
    if (const auto seconds = recording_.durationInForce(step))
        recording_.show(page_.txtStopTime, recording_.computeStopTime(*seconds, start));
}

void TimeEntries::cmdStartTime_Click()
{
    editDateTime(Steps(support_.errors, "cmdStartTime_Click"), page_.txtStartTime, false);
}

void TimeEntries::cmdStopTime_Click()
{
    const Steps step(support_.errors, "cmdStopTime_Click");
    const bool isDated = step.value([&] { return timeToEdit(page_.txtStartTime).hasDate(); });
    editDateTime(step, page_.txtStopTime, isDated);
}

/// The current time of day when the box contains no time.
DateTime TimeEntries::timeToEdit(const TextBox& box) const
{
    return box.text().empty() ? timePart(support_.platform.clock.now()) : recording_.timeIn(box);
}

void TimeEntries::editDateTime(const Steps& step, TextBox& box, bool oneDayOnly)
{
    const DateTime current = step.value([&] { return timeToEdit(box); });
    std::string chosen = box.text();
    step([&] {
        const Scoped guard(page_.isDialogOpen, true);
        if (const auto time = dialog_().Display(current, false, oneDayOnly))
            chosen = generalDate(*time, support_.locale());
    });
    step([&] { box.setText(chosen); });
}

} // namespace ko
