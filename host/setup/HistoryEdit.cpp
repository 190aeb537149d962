#include "host/setup/History.h"

#include <algorithm>

namespace ko {

bool History::edit(const HeldState& to)
{
    finish();
    if (!page_ || isMoving_)
        return false;
    const std::weak_ptr<int> run = run_;
    isMoving_ = true;
    const bool isTaken = restore(to);
    if (run.expired())
        return false;
    if (isTaken) {
        if (!showEdited(to, run))
            return false;
        take(presentOf(to.drivers));
    }
    isMoving_ = false;
    raise(changed);
    return isTaken;
}

const HostInstrument* History::startMaster(const HostInstruments& drivers) const
{
    // A negative index is beyond all.
    const auto master = static_cast<std::size_t>(page_->dynamicDriverIndex);
    return master < drivers.size() ? drivers[master].get() : nullptr;
}

/// The page knows its trigger channel by its place in the instrument, which the change may have moved.
ChannelPlace History::triggerAfter(const HeldState& to) const
{
    const HostInstrument* const master = startMaster(present_.drivers);
    const ChannelPlace before{page_->TriggerSlot, page_->TriggerChannel};
    const auto kept =
        std::find_if(to.drivers.begin(), to.drivers.end(), [&](const auto& driver) { return driver.get() == master; });
    if (kept == to.drivers.end())
        return master ? ChannelPlace{} : before;
    const auto was = static_cast<std::size_t>(page_->dynamicDriverIndex);
    const auto is = static_cast<std::size_t>(kept - to.drivers.begin());
    return movedTrigger(before, *present_.settings[was], *to.settings[is]);
}

/// Returns false if the history has ended meanwhile.
bool History::showEdited(const HeldState& to, const std::weak_ptr<int>& run)
{
    const auto store = [this](const ChannelPlace& place) {
        page_->TriggerSlot = place.group;
        page_->TriggerChannel = place.channel;
    };
    const auto rebuildShown = [this] {
        raise(restored);
        if (page_->isShown)
            raise(rebuild);
    };
    const HostInstrument* const master = startMaster(present_.drivers);
    const ChannelPlace trigger = triggerAfter(to);
    // Another start master takes the channel that is marked in it.
    store(page_->isShown ? ChannelPlace{} : trigger);
    to.drivers != present_.drivers ? handOver(to.drivers, HandOver::Edited) : rebuildShown();
    if (run.expired())
        return false;
    const bool isKept = page_->isShown && startMaster(to.drivers) == master;
    if (!isKept || trigger == ChannelPlace{page_->TriggerSlot, page_->TriggerChannel})
        return true;
    store(trigger);
    if (page_->optOnTrigger.value())
        raise(rebuild);
    return !run.expired();
}

} // namespace ko
