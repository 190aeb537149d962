#include "schedule/CapturedSettings.h"

#include "page/Timebases.h"
#include "platform/NumberText.h"

#include <utility>

namespace ko {

void CapturedSettings::capture(StartStopSettings known)
{
    if (page_.readOnly)
        return;
    const auto from = firstTimebase(page_.currentDrivers(), [&](Driver&, Timebase& timebase) {
        const StartStopSettings held = std::exchange(known, {});
        page_.triggerVars = TriggerVars{held.startMode ? *held.startMode : timebase.StartMode(),
                                        held.startTime ? *held.startTime : timebase.StartTime(),
                                        held.stopMode ? *held.stopMode : timebase.StopMode(),
                                        held.duration ? *held.duration : timebase.Duration()};
        return true;
    });
    if (from || from.isAfterFailing)
        page_.triggerVarsAreOfFirst = from && !from.isAfterFailing;
}

StartStopSettings CapturedSettings::ofFirst(const Steps& step)
{
    if (page_.triggerVars && page_.triggerVarsAreOfFirst)
        return StartStopSettings::of(*page_.triggerVars);
    const IndexedTimebase first = firstTimebase(page_.currentDrivers());
    if (!first || first.isAfterFailing)
        return {};
    const StartStopSettings read = StartStopSettings::readAll(step, *first.timebase);
    page_.triggerVarsAreOfFirst = read.isComplete();
    if (page_.triggerVarsAreOfFirst)
        page_.triggerVars = TriggerVars{*read.startMode, *read.startTime, *read.stopMode, *read.duration};
    return read;
}

std::optional<double> CapturedSettings::secondsOfFirst() const
{
    return page_.triggerVars && page_.triggerVarsAreOfFirst ? std::optional(widen(page_.triggerVars->duration))
                                                            : std::nullopt;
}

} // namespace ko
