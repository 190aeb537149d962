#include "triggering/TriggerChannel.h"

#include "interfaces/TriggerParameters.h"
#include "platform/Scoped.h"
#include "support/TextNumbers.h"
#include "triggering/SelectChannel.h"

namespace ko {

namespace {

/// Calls `visit(slot, channel)` for each channel of the driver (null: none).
template <class Visit> void forEachChannel(const Steps& step, Driver* driver, Visit visit)
{
    const std::int32_t groups = driver ? step.value([&] { return driver->GroupCount(); }) : 0;
    for (std::int32_t g = 0; g < groups; ++g) {
        const std::int32_t channels = step.value([&] { return driver->ChannelCount(g); });
        for (std::int32_t c = 0; c < channels; ++c)
            visit(g, c);
    }
}

} // namespace

TriggerChannel::TriggerChannel(Page& page, Support& support, Actions& actions, Dialog dialog)
    : page_(page), support_(support), actions_(actions), dialog_(std::move(dialog)), grid_(page, support, actions)
{
    page.cmdChannel.click = [this] { cmdChannel_Click(); };
}

std::shared_ptr<Driver> TriggerChannel::master() const
{
    return page_.driverAt(page_.dynamicDriverIndex)
               ? page_.currentDrivers()[static_cast<std::size_t>(page_.dynamicDriverIndex)]
               : nullptr;
}

void TriggerChannel::followStartMaster()
{
    const Steps step(support_.errors, "initializeDocument");
    const std::shared_ptr<Driver> driver = master();
    bool lacksIt = !driver;
    if (driver && page_.TriggerSlot >= 0)
        step([&] {
            lacksIt = page_.TriggerSlot >= driver->GroupCount() ||
                      (page_.TriggerChannel >= 0 && page_.TriggerChannel >= driver->ChannelCount(page_.TriggerSlot));
        });
    if (lacksIt) {
        page_.TriggerSlot = -1;
        page_.TriggerChannel = -1;
        page_.txtChannel.setText("");
    }
    if (lacksIt || shownFrom_.lock() != driver)
        grid_.clear();
    followUsability();
}

/// Starting on a trigger needs a start master and a dynamic driver.
void TriggerChannel::followUsability()
{
    page_.optOnTrigger.setEnabled(page_.dynamicDriverIndex >= 0 && page_.hasDynamicDrivers && !page_.readOnly);
}

void TriggerChannel::showArea(bool on)
{
    for (Control* control : std::initializer_list<Control*>{&page_.cmdChannel, &page_.txtChannel, &page_.lblChannel}) {
        control->setEnabled(on);
        control->setVisible(on);
    }
    page_.grdParam.setVisible(on);
}

void TriggerChannel::disableTriggering(bool onTrigger)
{
    followUsability();
    if (onTrigger)
        return;
    const Steps step(support_.errors, "disableTriggering");
    isOn_ = false;
    step([&] { page_.optOnTrigger.deselect(); });
    step([&] { showArea(false); });
    if (page_.TriggerChannel < 0)
        step([&] { page_.txtChannel.setText(""); });
    step([&] { page_.grdParam.setEnabled(false); });
}

void TriggerChannel::enableTriggering(bool onTrigger)
{
    followUsability();
    if (!onTrigger)
        return;
    const Steps step(support_.errors, "enableTriggering");
    step([&] { page_.optOnTrigger.showSelected(); });
    step([&] { showArea(true); });
    TriggerParameters* parameters = parametersOfMaster(step);
    // A page that is built switches no source off: which one counts is the driver's business.
    const bool isAsked = parameters && !(isStored() && page_.isLoading);
    const Channels sources = isAsked ? otherSources(step, *parameters) : Channels();
    if (!isStored() && !sources.empty()) {
        page_.TriggerSlot = sources.front().slot;
        page_.TriggerChannel = sources.front().channel;
    }
    if (!isOn_)
        warnOfDisabledChannel(step);
    isOn_ = true;
    showChannel(step);
    if (parameters && isStored())
        switchOn(step, *parameters, page_.isLoading ? Channels() : sources);
}

TriggerParameters* TriggerChannel::parametersOfMaster(const Steps& step) const
{
    const std::shared_ptr<Driver> driver = master();
    return driver ? step.value([&] { return driver->queryTriggerParameters(); }) : nullptr;
}

/// The channels besides the stored one that the driver marks as its trigger source.
TriggerChannel::Channels TriggerChannel::otherSources(const Steps& step, TriggerParameters& parameters) const
{
    Channels marked;
    forEachChannel(step, master().get(), [&](std::int32_t slot, std::int32_t channel) {
        if (!isStored(slot, channel) && step.value([&] { return parameters.TriggerEnabled(slot, channel); }))
            marked.push_back({slot, channel});
    });
    return marked;
}

void TriggerChannel::warnOfDisabledChannel(const Steps& step)
{
    const std::shared_ptr<Driver> driver = master();
    if (!driver || !isStored())
        return;
    bool isEnabled = true;
    step([&] {
        isEnabled =
            isEnabledValue(driver->ChannelAttribute(page_.TriggerSlot, page_.TriggerChannel, attribute::enabled));
    });
    if (!isEnabled)
        step([&] {
            support_.platform.messageBox.show(support_.text(textNumber::page::channelDisabled),
                                              support_.text(textNumber::page::warning), messageStyle::information);
        });
}

void TriggerChannel::showChannel(const Steps& step)
{
    const std::shared_ptr<Driver> driver = master();
    page_.txtChannel.setText(step.value([&] {
        return describeChannel(driver.get(), page_.TriggerSlot, page_.TriggerChannel, false, support_.strings,
                               support_.locale());
    }));
    shownFrom_ = driver;
    grid_.SetupParamGrid(driver.get(), page_.TriggerSlot, page_.TriggerChannel);
    actions_.refreshPlan();
}

/// A driver has one trigger source.
void TriggerChannel::switchOn(const Steps& step, TriggerParameters& parameters, const Channels& sources)
{
    for (const Channel& source : sources)
        if (!isStored(source.slot, source.channel))
            step([&] { parameters.setTriggerEnabled(source.slot, source.channel, false); });
    step([&] { parameters.setTriggerEnabled(page_.TriggerSlot, page_.TriggerChannel, true); });
}

void TriggerChannel::switchOff(const Steps& step, TriggerParameters& parameters) const
{
    step([&] { parameters.setTriggerEnabled(page_.TriggerSlot, page_.TriggerChannel, false); });
}

void TriggerChannel::clearTriggerSource()
{
    const Steps step(support_.errors, "clearTriggerSource");
    if (TriggerParameters* parameters = isStored() ? parametersOfMaster(step) : nullptr)
        switchOff(step, *parameters);
}

void TriggerChannel::cmdChannel_Click()
{
    const std::shared_ptr<Driver> offered = master();
    if (page_.isLoading || page_.isDialogOpen || !offered)
        return;
    const Steps step(support_.errors, "cmdChannel_Click");
    const Scoped open(page_.isDialogOpen, true);
    step([&] { dialog_().UpdateDrivers({offered}, 1); });
    std::shared_ptr<Driver> driver;
    std::int32_t slot = -1;
    std::int32_t channel = -1;
    if (!choose(step, driver, slot, channel))
        return;
    store(step, slot, channel);
    showChannel(step);
    step([&] { actions_.markChanged(); });
}

/// Asks until a channel is chosen; false when the user cancels.
bool TriggerChannel::choose(const Steps& step, std::shared_ptr<Driver>& driver, std::int32_t& slot,
                            std::int32_t& channel)
{
    for (;;) {
        driver = master();
        slot = page_.TriggerSlot;
        channel = page_.TriggerChannel;
        if (!step.value([&] { return dialog_().Display(driver, slot, channel); }))
            return false;
        if (driver)
            return true;
        step([&] {
            support_.platform.messageBox.show(support_.text(textNumber::page::channelRequired),
                                              support_.text(textNumber::page::error), messageStyle::information);
        });
    }
}

/// Moves the driver's switch along.
void TriggerChannel::store(const Steps& step, std::int32_t slot, std::int32_t channel)
{
    if (page_.TriggerSlot == slot && page_.TriggerChannel == channel)
        return;
    TriggerParameters* parameters = parametersOfMaster(step);
    if (parameters && isStored())
        switchOff(step, *parameters);
    page_.TriggerSlot = slot;
    page_.TriggerChannel = channel;
    if (parameters && isStored())
        switchOn(step, *parameters, otherSources(step, *parameters));
}

} // namespace ko
