#include "host/instruments/HostInstrument.h"

#include <algorithm>

namespace ko {

namespace {

/// Calls `visit` with the index and both elements of each pair.
template <class T, class Visit> void forEachPair(std::vector<T>& held, const std::vector<T>& earlier, Visit&& visit)
{
    for (std::size_t i = 0; i < std::min(held.size(), earlier.size()); ++i)
        visit(static_cast<std::int32_t>(i), held[i], earlier[i]);
}

/// Sets members that differ in `next`, each as a call that is counted, observed and made to fail as planned, and then
/// taken by the instrument.
struct Restoring {
    CallGate& calls;
    Instrument& instrument;
    const InstrumentSettings& next;

    template <class T> void set(Operation operation, CallGate::Arguments arguments, T& held, const T& earlier) const
    {
        if (held != earlier)
            calls.write(
                operation, arguments, earlier,
                [&] {
                    held = earlier;
                    instrument.restore(next);
                },
                [&] { return earlier; });
    }

    void timebase(TimebaseSettings& held, const TimebaseSettings& earlier) const
    {
        set(Operation::SamplePeriodSet, {}, held.samplePeriod.value, earlier.samplePeriod.value);
        set(Operation::BlockSizeSet, {}, held.blockSize.value, earlier.blockSize.value);
        set(Operation::ScanPeriodSet, {}, held.scanPeriod.value, earlier.scanPeriod.value);
        set(Operation::DurationSet, {}, held.duration, earlier.duration);
        set(Operation::StartTimeSet, {}, held.startTime, earlier.startTime);
        set(Operation::StopModeSet, {}, held.stopMode, earlier.stopMode);
        set(Operation::StartModeSet, {}, held.startMode, earlier.startMode);
    }

    void lines(TriggerLineSettings& held, const TriggerLineSettings& earlier) const
    {
        set(Operation::StartTriggerLineSet, {}, held.startTriggerLine, earlier.startTriggerLine);
        set(Operation::StartTriggerInput, {}, held.startTriggerInput, earlier.startTriggerInput);
        set(Operation::ScanTriggerLineSet, {}, held.scanTriggerLine, earlier.scanTriggerLine);
        set(Operation::ScanTriggerInput, {}, held.scanTriggerInput, earlier.scanTriggerInput);
    }

    void channel(std::int32_t group, std::int32_t number, ChannelSettings& held, const ChannelSettings& earlier) const
    {
        set(Operation::TriggerEnabledSet, {group, number}, held.triggerSource, earlier.triggerSource);
        forEachPair(held.triggerParameters, earlier.triggerParameters,
                    [&](std::int32_t, ParameterSettings& now, const ParameterSettings& was) {
                        if (now.id == was.id)
                            set(Operation::SetTriggerParamValue, {group, number, now.id}, now.value, was.value);
                    });
    }
};

} // namespace

void HostInstrument::restore(const InstrumentSettings& settings)
{
    InstrumentSettings next = held();
    const bool isOpen = !device_ || device_->trouble().empty();
    if (isOpen && next.module == settings.module) {
        const Restoring restoring{calls_, *instrument_, next};
        if (settings.timebase && next.timebase)
            restoring.timebase(*next.timebase, *settings.timebase);
        if (settings.triggerLines && next.triggerLines)
            restoring.lines(*next.triggerLines, *settings.triggerLines);
        forEachPair(next.groups, settings.groups, [&](std::int32_t group, GroupSettings& held, const auto& before) {
            forEachPair(held.channels, before.channels,
                        [&](std::int32_t channel, ChannelSettings& now, const auto& was) {
                            // A device takes the rest by the addresses of its channels.
                            if (!device_ || now.address == was.address)
                                restoring.channel(group, channel, now, was);
                        });
        });
    }
    // What is left has no operation: names, offers and enabled channels.
    take(settings);
}

} // namespace ko
