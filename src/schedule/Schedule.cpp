#include "schedule/Schedule.h"

#include "platform/DateTimes.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <utility>

namespace ko {

namespace {

constexpr float defaultSeconds = 10.0F;

/// An unknown mode counts as 0, and a stop at a time requires a start at a time. A stop mode whose start mode could not
/// be read is not written.
void normalizeModes(StartStopSettings& settings)
{
    if (settings.startMode &&
        (*settings.startMode < startMode::immediately || *settings.startMode > startMode::onTrigger))
        settings.startMode = startMode::immediately;
    const bool startsElsewhere = settings.startMode && settings.startMode != startMode::atTime;
    if (settings.stopMode && (settings.stopMode != stopMode::atTime || startsElsewhere))
        settings.stopMode = stopMode::afterDuration;
    if (!settings.startMode)
        settings.stopMode.reset();
}

} // namespace

Schedule::Schedule(Page& page, Support& support, Actions& actions, TimeEntries::Dialog dialog)
    : page_(page), support_(support), captured_(page), recording_(page, support, actions, captured_),
      startStop_(page, support, actions, recording_), duration_(page, support, recording_),
      times_(page, support, recording_, std::move(dialog)), estimate_(page, support, recording_),
      whatFits_(page, support, actions, recording_), plan_(page, support)
{
    page.minutePassed = [this] {
        if (!page_.isShown || page_.isLoading)
            return;
        if (page_.figures.stopTime)
            estimate_.followClock();
        plan_.show();
    };
}

/// The settings of the first timebase or, on a read-only page, those of the start master or else of the scan master, as
/// far as they can be read: settings that were not read are never written. None when the drivers were restored. Without
/// a dynamic driver the recording does not start on a trigger.
StartStopSettings Schedule::settingsToApply(const Steps& step)
{
    if (page_.isRestored)
        return {};
    StartStopSettings settings;
    const std::int32_t master = page_.dynamicDriverIndex < 0 ? page_.staticDriverIndex : page_.dynamicDriverIndex;
    if (!page_.readOnly) {
        settings = captured_.ofFirst(step);
        normalizeModes(settings);
    } else if (Timebase* timebase = step.value([&] { return page_.timebaseAt(master); })) {
        settings = StartStopSettings::readAll(step, *timebase);
    }
    if (!page_.readOnly && settings.isComplete()) {
        page_.triggerVars->startMode = *settings.startMode;
        page_.triggerVars->stopMode = *settings.stopMode;
    }
    const Drivers drivers = page_.currentDrivers();
    const bool anyDynamic = std::any_of(drivers.begin(), drivers.end(), [&](const auto& driver) {
        return driver && step.value([&] { return isDynamicDriver(*driver); });
    });
    if (!anyDynamic && settings.startMode == startMode::onTrigger)
        settings.startMode = startMode::immediately;
    // A time that cannot be shown is not written.
    if (settings.startMode != startMode::atTime || !isInValidYears(settings.startTime.value_or(DateTime{})))
        settings.startTime.reset();
    return settings;
}

/// Returns what the first timebase then holds; without one the defaults, unless a driver could not be queried.
StartStopSettings Schedule::applyStartStop(const Steps& loading)
{
    const Steps step(support_.errors, "applyStartStop", errorSource::triggering);
    const StartStopSettings settings = settingsToApply(step);
    std::optional<StartStopSettings> first;
    forEachTimebase(step, page_.currentDrivers(), [&](const IndexedTimebase& at) {
        const bool isWritten = settings.write(step, *at.timebase, StartStopSettings::Order::Loaded);
        if (first) {
            (void)settings.read(step, *at.timebase);
            return;
        }
        first = StartStopSettings::readAll(loading, *at.timebase);
        if (isWritten)
            first->complete(settings);
    });
    if (first)
        return *first;
    StartStopSettings without;
    if (!firstTimebase(page_.currentDrivers()).isAfterFailing)
        without = {startMode::immediately, std::nullopt, stopMode::afterDuration, defaultSeconds};
    return without;
}

void Schedule::loadStartStop(const Steps& step)
{
    loaded_ = applyStartStop(step);
    step([&] { page_.cmbInterval.select(0); });
    show(step);
    step([&] { duration_.showDuration(loaded_.seconds()); });
    page_.isDurationKnown = true;
}

void Schedule::loaded(const Steps& step)
{
    startStop_.enableStartControls();
    startStop_.enableStopControls();
    recording_.loaded(step, loaded_);
}

/// An unknown start mode selects no option. A time that is unknown, or cannot be shown, leaves its box empty.
void Schedule::show(const Steps& step)
{
    if (page_.driverChangesPending) {
        page_.txtStartTime.setText("");
        page_.txtStopTime.setText("");
    }
    const bool stopsAtTime = loaded_.startMode == startMode::atTime && loaded_.stopMode == stopMode::atTime;
    (stopsAtTime ? page_.optStopTime : page_.optAfter).showSelected();
    if (!loaded_.startMode) {
        if (OptionButton* option = page_.startOption())
            option->deselect();
        return;
    }
    if (*loaded_.startMode != startMode::atTime) {
        (*loaded_.startMode == startMode::onTrigger ? page_.optOnTrigger : page_.optImmediate).showSelected();
        return;
    }
    page_.optStartTime.showSelected();
    std::string start;
    std::string stop;
    if (loaded_.startTime)
        step([&] {
            start = generalDate(*loaded_.startTime, support_.locale());
            if (const auto seconds = loaded_.seconds(); seconds && stopsAtTime)
                stop = recording_.computeStopTime(*seconds, *loaded_.startTime);
        });
    page_.txtStartTime.setText(start);
    if (stopsAtTime)
        page_.txtStopTime.setText(stop);
}

} // namespace ko
