#include "page/StartStopSettings.h"

#include "platform/NumberText.h"

namespace ko {

std::optional<double> StartStopSettings::seconds() const
{
    return duration ? std::optional(widen(*duration)) : std::nullopt;
}

StartStopSettings StartStopSettings::readAll(const Steps& step, Timebase& timebase)
{
    return of(TriggerVars{}).read(step, timebase);
}

void StartStopSettings::complete(const StartStopSettings& other)
{
    startMode = startMode ? startMode : other.startMode;
    startTime = startTime ? startTime : other.startTime;
    stopMode = stopMode ? stopMode : other.stopMode;
    duration = duration ? duration : other.duration;
}

bool StartStopSettings::isLike(const StartStopSettings& other) const
{
    return startMode.has_value() == other.startMode.has_value() &&
           startTime.has_value() == other.startTime.has_value() && stopMode.has_value() == other.stopMode.has_value() &&
           duration.has_value() == other.duration.has_value();
}

StartStopSettings StartStopSettings::without(const StartStopSettings& other) const
{
    StartStopSettings rest = *this;
    const auto drop = [](auto& member, const auto& same) {
        if (member == same)
            member.reset();
    };
    drop(rest.startMode, other.startMode);
    drop(rest.startTime, other.startTime);
    drop(rest.stopMode, other.stopMode);
    drop(rest.duration, other.duration);
    return rest;
}

StartStopSettings StartStopSettings::read(const Steps& step, Timebase& timebase) const
{
    StartStopSettings read;
    if (startMode)
        step([&] { read.startMode = timebase.StartMode(); });
    if (startTime)
        step([&] { read.startTime = timebase.StartTime(); });
    if (stopMode)
        step([&] { read.stopMode = timebase.StopMode(); });
    if (duration)
        step([&] { read.duration = timebase.Duration(); });
    return read;
}

bool StartStopSettings::write(const Steps& step, Timebase& timebase, Order order) const
{
    bool isWhole = true;
    const auto writeDuration = [&] {
        if (duration)
            isWhole &= step([&] { timebase.setDuration(*duration); });
    };
    const auto writeStartMode = [&] {
        if (startMode)
            isWhole &= step([&] { timebase.setStartMode(*startMode); });
    };
    if (order == Order::Edited)
        writeDuration();
    else
        writeStartMode();
    if (startTime)
        isWhole &= step([&] { timebase.setStartTime(*startTime); });
    if (order == Order::Edited)
        writeStartMode();
    if (stopMode)
        isWhole &= step([&] { timebase.setStopMode(*stopMode); });
    if (order == Order::Loaded)
        writeDuration();
    return isWhole;
}

} // namespace ko
