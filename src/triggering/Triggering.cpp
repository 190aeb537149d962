#include "triggering/Triggering.h"

#include "interfaces/Timebase.h"
#include "support/Steps.h"

#include <algorithm>

namespace ko {

namespace {

/// Start and stop settings as far as they could be read.
struct ReadSettings {
    std::optional<std::int32_t> startMode;
    std::optional<DateTime> startTime;
    std::optional<std::int32_t> stopMode;
    std::optional<float> duration;
};

ReadSettings readSettings(const Steps& step, Timebase& timebase)
{
    ReadSettings read;
    step([&] { read.startMode = timebase.StartMode(); });
    step([&] { read.startTime = timebase.StartTime(); });
    step([&] { read.stopMode = timebase.StopMode(); });
    step([&] { read.duration = timebase.Duration(); });
    return read;
}

void writeSettings(const Steps& step, Timebase& timebase, const ReadSettings& settings)
{
    if (settings.startMode)
        step([&] { timebase.setStartMode(*settings.startMode); });
    if (settings.startMode == startMode::atTime && settings.startTime)
        step([&] { timebase.setStartTime(*settings.startTime); });
    if (settings.stopMode)
        step([&] { timebase.setStopMode(*settings.stopMode); });
    if (settings.duration)
        step([&] { timebase.setDuration(*settings.duration); });
}

Driver* driverAt(Drivers drivers, std::int32_t index)
{
    const auto at = static_cast<std::size_t>(index);
    return index >= 0 && at < drivers.size() ? drivers[at].get() : nullptr;
}

} // namespace

void Triggering::captureStartStop(Drivers drivers, std::optional<TriggerVars>& triggerVars)
{
    for (const auto& driver : drivers) {
        try {
            Timebase* timebase = driver ? driver->queryTimebase() : nullptr;
            if (!timebase)
                continue;
            const auto mode = timebase->StartMode();
            const auto time = timebase->StartTime();
            const auto stop = timebase->StopMode();
            triggerVars = TriggerVars{mode, time, stop, timebase->Duration()};
            return;
        } catch (...) {
            // The next driver may answer.
            continue;
        }
    }
}

void Triggering::applyStartStop(Drivers drivers, std::int32_t dynamicDriverIndex, std::int32_t staticDriverIndex,
                                const std::optional<TriggerVars>& triggerVars, bool readOnly)
{
    const Steps step(support_.errors, "applyStartStop", errorSource::triggering);
    const bool anyDynamic = std::any_of(drivers.begin(), drivers.end(), [&](const auto& driver) {
        return driver && step.value([&] { return isDynamicDriver(*driver); });
    });
    ReadSettings settings;
    if (triggerVars && !readOnly) {
        settings = {triggerVars->startMode, triggerVars->startTime, triggerVars->stopMode, triggerVars->duration};
    } else if (Driver* source = driverAt(drivers, dynamicDriverIndex < 0 ? staticDriverIndex : dynamicDriverIndex)) {
        if (Timebase* timebase = step.value([&] { return source->queryTimebase(); }))
            settings = readSettings(step, *timebase);
    }
    if (!anyDynamic && settings.startMode == startMode::onTrigger)
        settings.startMode = startMode::immediately;
    for (const auto& driver : drivers) {
        if (!driver)
            continue;
        if (Timebase* timebase = step.value([&] { return driver->queryTimebase(); }))
            writeSettings(step, *timebase, settings);
    }
}

} // namespace ko
