#include "schedule/Schedule.h"

#include "interfaces/Timebase.h"
#include "page/Hints.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"

namespace ko {

namespace {

constexpr double defaultDuration = 10.0;

} // namespace

Schedule::Schedule(Page& page, Support& support, Actions& actions) : page_(page), support_(support), actions_(actions)
{
    connectFocusEvents();
}

void Schedule::connectFocusEvents()
{
    const auto leave = [this] { page_.editFlags = editFlag::none; };
    page_.txtDuration.gotFocus = [this] { txtDuration_GotFocus(); };
    page_.txtDuration.lostFocus = leave;
    page_.cmbInterval.gotFocus = [this] { cmbInterval_GotFocus(); };
    page_.cmbInterval.lostFocus = leave;
    page_.txtStartTime.gotFocus = [this] { timeBoxGotFocus(page_.txtStartTime, "txtStartTime_GotFocus"); };
    page_.txtStartTime.lostFocus = leave;
    page_.txtStopTime.gotFocus = [this] { timeBoxGotFocus(page_.txtStopTime, "txtStopTime_GotFocus"); };
    page_.txtStopTime.lostFocus = leave;
    page_.optImmediate.gotFocus = [this] { optionGotFocus("optImmediate_GotFocus"); };
    page_.optOnTrigger.gotFocus = [this] { optionGotFocus("optOnTrigger_GotFocus"); };
    page_.optStartTime.gotFocus = [this] { optionGotFocus("optStartTime_GotFocus"); };
    page_.optAfter.gotFocus = [this] { optionGotFocus("optAfter_GotFocus"); };
    page_.optStopTime.gotFocus = [this] { optionGotFocus("optStopTime_GotFocus"); };
}

void Schedule::clearHint(const Steps& step)
{
    step([&] { setToolTip(page_, support_, noRange, noRange); });
}

void Schedule::txtDuration_GotFocus()
{
    const Steps step(support_.errors, "txtDuration_GotFocus");
    page_.editFlags = editFlag::copy | editFlag::paste;
    clearHint(step);
    step([&] { selectAllText(page_.txtDuration); });
}

void Schedule::cmbInterval_GotFocus()
{
    const Steps step(support_.errors, "cmbInterval_GotFocus");
    page_.editFlags = editFlag::none;
    clearHint(step);
    intervalAtFocus_ = page_.cmbInterval.index();
}

void Schedule::timeBoxGotFocus(TextBox& box, std::string_view procedure)
{
    const Steps step(support_.errors, procedure);
    page_.editFlags = editFlag::copy;
    clearHint(step);
    step([&] { selectAllText(box); });
}

void Schedule::optionGotFocus(std::string_view procedure)
{
    clearHint(Steps(support_.errors, procedure));
}

void Schedule::loadStartStop(const Steps& step)
{
    std::int32_t start = startMode::immediately;
    std::int32_t stop = stopMode::afterDuration;
    DateTime time;
    double seconds = defaultDuration;
    for (const auto& driver : page_.currentDrivers()) {
        Timebase* timebase = driver ? step.value([&] { return driver->queryTimebase(); }) : nullptr;
        if (!timebase)
            continue;
        step([&] { start = timebase->StartMode(); });
        step([&] { time = timebase->StartTime(); });
        step([&] { stop = timebase->StopMode(); });
        step([&] { seconds = widen(timebase->Duration()); });
        break;
    }
    step([&] { page_.cmbInterval.select(0); });
    showStartMode(step, start, stop, time, seconds);
    step([&] { showDuration(seconds); });
    page_.isDurationKnown = true;
}

void Schedule::showStartMode(const Steps& step, std::int32_t start, std::int32_t stop, DateTime time, double seconds)
{
    if (page_.driverChangesPending) {
        page_.txtStartTime.setText("");
        page_.txtStopTime.setText("");
    }
    if (start != startMode::atTime) {
        (start == startMode::onTrigger ? page_.optOnTrigger : page_.optImmediate).showSelected();
        page_.optAfter.showSelected();
        return;
    }
    page_.optStartTime.showSelected();
    step([&] { page_.txtStartTime.setText(generalDate(time, support_.locale())); });
    if (stop != stopMode::atTime) {
        page_.optAfter.showSelected();
        return;
    }
    step([&] { page_.txtStopTime.setText(computeStopTime('s', seconds, time)); });
    page_.optStopTime.showSelected();
}

void Schedule::showDuration(double seconds)
{
    constexpr double unitSeconds[] = {1.0, 60.0, 3600.0, 86400.0};
    std::int32_t unit = 3;
    while (unit > 0 && !(seconds >= unitSeconds[unit]))
        --unit;
    page_.cmbInterval.select(unit);
    page_.txtDuration.setText(numberText(seconds / unitSeconds[unit], support_.locale()));
}

std::string Schedule::computeStopTime(char unit, double amount, DateTime start) const
{
    return generalDate(dateAdd(unit, amount, start), support_.locale());
}

DateTime Schedule::timeIn(const TextBox& box) const
{
    return toDateTime(box.text(), support_.locale());
}

double Schedule::getDurationSeconds() const
{
    if (page_.optAfter.value())
        return toDouble(page_.txtDuration.text(), support_.locale()) * page_.cmbInterval.itemData();
    DateTime start = timeIn(page_.txtStartTime);
    DateTime stop = timeIn(page_.txtStopTime);
    const double today = datePart(support_.platform.clock.now()).days;
    if (start.days < 1.0 && stop.days > 1.0)
        start.days += today;
    else if (start.days > 1.0 && stop.days < 1.0)
        stop.days += today;
    return dateDiffSeconds(start, stop);
}

std::int32_t Schedule::updateDiskSpace()
{
    if (!page_.isDurationKnown)
        return diskSpace::fits;
    const ByteTotals totals = sumDriverBytes(page_.currentDrivers());
    return checkDiskSpace(totals, page_.hasDynamicDrivers, page_.hasStaticDrivers);
}

} // namespace ko
