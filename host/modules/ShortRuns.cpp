#include "host/modules/ShortRuns.h"

#include "host/instruments/KeptInstrument.h"

#include <algorithm>

namespace ko {

void setForShortRuns(const OpenedInstrument& opened)
{
    CheckLog& log = opened.log;
    Timebase& timebase = *opened.timebase;
    log.may("setSamplePeriod", [&] { timebase.setSamplePeriod(0.001); });
    log.may("setScanPeriod", [&] { timebase.setScanPeriod(0.05); });
    log.may("setBlockSize", [&] { timebase.setBlockSize(10.0); });
    log.may("setDuration", [&] { timebase.setDuration(1.0F); });
    log.may("setStartMode", [&] { timebase.setStartMode(startMode::immediately); });
    log.may("setStopMode", [&] { timebase.setStopMode(stopMode::afterDuration); });
    InstrumentSettings held = opened.held();
    bool isAnyEnabled = false;
    forEachChannel(held, [&](const ChannelSettings& it, auto, auto) { isAnyEnabled = isAnyEnabled || it.isEnabled(); });
    if (isAnyEnabled)
        return;
    forEachChannel(held, [](ChannelSettings& it, auto, auto) { it.enabled = std::int32_t{1}; });
    log.must("restore, with all channels enabled", [&] { opened.instrument.restore(held); });
}

bool chooseTrigger(const OpenedInstrument& opened)
{
    bool isChosen = false;
    const InstrumentSettings held = opened.held();
    if (opened.parameters)
        forEachChannel(held, [&](const ChannelSettings& it, std::int32_t group, std::int32_t channel) {
            const bool isSource = it.canTrigger && !isChosen;
            opened.log.may("setTriggerEnabled",
                           [&] { opened.parameters->setTriggerEnabled(group, channel, isSource); });
            isChosen = isChosen || isSource;
        });
    return isChosen;
}

void compareArmed(const OpenedInstrument& opened, const ArmedSettings& armed)
{
    CheckLog& log = opened.log;
    const auto whatIsHeld = log.must("held", [&] { return armedSettings(opened.instrument.held()); });
    if (!whatIsHeld)
        return;
    const ArmedSettings& held = *whatIsHeld;
    if (armed.period != held.period)
        log.blame("arm", "returns a period of " + checkedNumber(armed.period) + " s, and held() has " +
                             checkedNumber(held.period));
    if (armed.isDynamic != held.isDynamic || armed.blockSize != held.blockSize)
        log.blame("arm", "returns another kind or block size than held() has");
    const auto isSame = [](const ArmedChannel& one, const ArmedChannel& other) {
        return one.address == other.address && one.group == other.group && one.channel == other.channel;
    };
    if (!std::equal(armed.channels.begin(), armed.channels.end(), held.channels.begin(), held.channels.end(), isSame))
        log.blame("arm", "returns other channels than those that held() has enabled");
}

} // namespace ko
