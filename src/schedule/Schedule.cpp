#include "schedule/Schedule.h"

#include "interfaces/Timebase.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"

#include <utility>

namespace ko {

Schedule::Schedule(Page& page, Support& support, Actions& actions, TimeEntries::Dialog dialog)
    : page_(page), support_(support), actions_(actions), recording_(page, support, actions),
      startStop_(page, support, actions, recording_), duration_(page, support, recording_),
      times_(page, support, recording_, std::move(dialog)), estimate_(page, support, recording_),
      whatFits_(page, support, recording_), plan_(page, support)
{
}

Schedule::Settings Schedule::read(const Steps& step) const
{
    Settings read;
    for (const auto& driver : page_.currentDrivers()) {
        Timebase* timebase = driver ? step.value([&] { return driver->queryTimebase(); }) : nullptr;
        if (!timebase)
            continue;
        step([&] { read.start = timebase->StartMode(); });
        step([&] { read.time = timebase->StartTime(); });
        step([&] { read.stop = timebase->StopMode(); });
        step([&] { read.seconds = widen(timebase->Duration()); });
        break;
    }
    return read;
}

void Schedule::loadStartStop(const Steps& step)
{
    const Settings settings = read(step);
    step([&] { page_.cmbInterval.select(0); });
    show(step, settings);
    step([&] { duration_.showDuration(settings.seconds); });
    if (page_.optAfter.value() && settings.stop != stopMode::afterDuration)
        stopAfterDuration(step);
    loadedSeconds_ = settings.seconds;
    page_.isDurationKnown = true;
}

void Schedule::loaded()
{
    recording_.followDrivers();
    recording_.accept(loadedSeconds_);
}

void Schedule::show(const Steps& step, const Settings& settings)
{
    if (page_.driverChangesPending) {
        page_.txtStartTime.setText("");
        page_.txtStopTime.setText("");
    }
    if (settings.start != startMode::atTime) {
        (settings.start == startMode::onTrigger ? page_.optOnTrigger : page_.optImmediate).showSelected();
        page_.optAfter.showSelected();
        return;
    }
    page_.optStartTime.showSelected();
    step([&] { page_.txtStartTime.setText(generalDate(settings.time, support_.locale())); });
    if (settings.stop != stopMode::atTime) {
        page_.optAfter.showSelected();
        return;
    }
    step([&] { page_.txtStopTime.setText(recording_.computeStopTime('s', settings.seconds, settings.time)); });
    page_.optStopTime.showSelected();
}

/// The page shows a stop after the duration where the start allows no other, so no driver may keep another.
void Schedule::stopAfterDuration(const Steps& step)
{
    ScheduleChange change;
    change.stopMode = stopMode::afterDuration;
    ScheduleWriter().write(step, page_.currentDrivers(), change);
    actions_.captureStartStop();
}

} // namespace ko
