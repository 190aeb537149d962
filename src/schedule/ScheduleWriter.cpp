#include "schedule/ScheduleWriter.h"

#include "interfaces/Timebase.h"
#include "platform/NumberText.h"

namespace ko {

namespace {

ScheduleChange readBefore(const Steps& step, Timebase& timebase, const ScheduleChange& change,
                          const std::optional<Held>& duration)
{
    ScheduleChange before;
    if (change.duration)
        step([&] {
            const bool isKnown = duration && duration->of == &timebase;
            before.duration = isKnown ? toSingle(duration->value) : timebase.Duration();
        });
    if (change.startTime)
        step([&] { before.startTime = timebase.StartTime(); });
    if (change.startMode)
        step([&] { before.startMode = timebase.StartMode(); });
    if (change.stopMode)
        step([&] { before.stopMode = timebase.StopMode(); });
    return before;
}

void put(const Steps& step, Timebase& timebase, const ScheduleChange& change)
{
    if (change.duration)
        step([&] { timebase.setDuration(*change.duration); });
    if (change.startTime)
        step([&] { timebase.setStartTime(*change.startTime); });
    if (change.startMode)
        step([&] { timebase.setStartMode(*change.startMode); });
    if (change.stopMode)
        step([&] { timebase.setStopMode(*change.stopMode); });
}

} // namespace

void ScheduleWriter::write(const Steps& step, Drivers drivers, const ScheduleChange& change,
                           const std::optional<Held>& duration)
{
    written_.clear();
    for (const auto& driver : drivers) {
        Timebase* timebase = driver ? step.value([&] { return driver->queryTimebase(); }) : nullptr;
        if (!timebase)
            continue;
        written_.push_back({timebase, readBefore(step, *timebase, change, duration)});
        put(step, *timebase, change);
    }
}

void ScheduleWriter::undo(const Steps& step)
{
    for (const Written& written : written_)
        put(step, *written.timebase, written.before);
}

} // namespace ko
