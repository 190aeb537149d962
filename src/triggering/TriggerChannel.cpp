#include "triggering/TriggerChannel.h"

#include "interfaces/TriggerParameters.h"
#include "platform/Scoped.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"
#include "triggering/SelectChannel.h"

namespace ko {

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
        keep({});
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
    page_.lblChooseChannel.setVisible(on && !stored().isChannel());
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
    const std::optional<SourceSwitches> driver = switches(step);
    // Building the page switches no source off; the driver decides which one it uses.
    const bool isAsked = driver && !(stored().isChannel() && page_.isLoading);
    auto sources = isAsked ? driver->markedBesides({stored()}) : SourceSwitches::Sources();
    if (!stored().isChannel() && !sources.empty()) {
        keep(sources.front());
        sources.erase(sources.begin());
    }
    if (!isOn_)
        warnOfDisabledChannel(step);
    isOn_ = true;
    showChannel(step);
    if (driver && stored().isChannel())
        switchOn(step, *driver, page_.isLoading ? SourceSwitches::Sources() : sources);
}

/// When the driver keeps another source, the page shows that one.
void TriggerChannel::switchOn(const Steps& step, const SourceSwitches& driver, const SourceSwitches::Sources& others)
{
    const TriggerSource source = driver.move(others, stored());
    if (step.isOver() || !source.isChannel() || source == stored())
        return;
    keep(source);
    showChannel(step);
}

std::optional<SourceSwitches> TriggerChannel::switches(const Steps& step) const
{
    const std::shared_ptr<Driver> driver = master();
    TriggerParameters* parameters = driver ? step.value([&] { return driver->queryTriggerParameters(); }) : nullptr;
    return parameters ? std::optional<SourceSwitches>(std::in_place, step, *driver, *parameters) : std::nullopt;
}

void TriggerChannel::keep(const TriggerSource& source)
{
    page_.TriggerSlot = source.slot;
    page_.TriggerChannel = source.channel;
}

void TriggerChannel::warnOfDisabledChannel(const Steps& step)
{
    const std::shared_ptr<Driver> driver = master();
    if (!driver || !stored().isChannel())
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
    page_.lblChooseChannel.setVisible(page_.txtChannel.visible() && !stored().isChannel());
    shownFrom_ = driver;
    grid_.SetupParamGrid(driver.get(), page_.TriggerSlot, page_.TriggerChannel);
    actions_.refreshPlan();
}

void TriggerChannel::clearTriggerSource()
{
    const Steps step(support_.errors, "clearTriggerSource");
    if (!stored().isChannel())
        return;
    if (const std::optional<SourceSwitches> driver = switches(step))
        driver->set(stored(), false);
}

void TriggerChannel::cmdChannel_Click()
{
    const std::shared_ptr<Driver> offered = master();
    if (page_.isLoading || page_.isDialogOpen || !offered)
        return;
    const Steps step(support_.errors, "cmdChannel_Click");
    const Scoped open(page_.isDialogOpen, true);
    step([&] { dialog_().UpdateDrivers({offered}, 1); });
    step([&] { dialog_().setNotes(notesOn(step, *offered)); });
    const std::optional<TriggerSource> chosen = choose(step);
    if (!chosen)
        return;
    const bool isTaken = store(step, *chosen);
    showChannel(step);
    if (isTaken)
        step([&] { actions_.markChanged(); });
}

/// Why instruments, or the offered one itself, have no channel in the dialog.
std::vector<std::string> TriggerChannel::notesOn(const Steps& step, const Driver& offered) const
{
    std::vector<std::string> notes;
    for (const auto& driver : page_.currentDrivers()) {
        const bool isOffered = driver.get() == &offered;
        if (!driver || (isOffered && dialog_().offersChannels()))
            continue;
        const std::string name = step.value([&] { return driver->DriverName(0); });
        const int reason = isOffered ? textNumber::channelDialog::noSource : textNumber::channelDialog::notStartMaster;
        if (!name.empty())
            notes.push_back(filled(support_.text(reason), {name}));
    }
    return notes;
}

/// Shows the dialog until a channel is chosen; none when the user cancels.
std::optional<TriggerSource> TriggerChannel::choose(const Steps& step)
{
    for (;;) {
        std::shared_ptr<Driver> driver = master();
        TriggerSource source = stored();
        if (!step.value([&] { return dialog_().Display(driver, source.slot, source.channel); }))
            return std::nullopt;
        if (driver)
            return source;
        step([&] {
            support_.platform.messageBox.show(support_.text(textNumber::page::channelRequired),
                                              support_.text(textNumber::page::error), messageStyle::information);
        });
    }
}

/// Returns false when the driver keeps another source, which the page then shows.
bool TriggerChannel::store(const Steps& step, const TriggerSource& chosen)
{
    if (chosen == stored())
        return true;
    const TriggerSource source = moveSource(step, chosen);
    if (step.isOver())
        return false;
    const bool isTaken = source == chosen;
    if (isTaken || source.isChannel())
        keep(source);
    return isTaken;
}

/// Switches the driver to the chosen source; returns the source that it then has.
TriggerSource TriggerChannel::moveSource(const Steps& step, const TriggerSource& chosen) const
{
    const std::shared_ptr<Driver> driver = master();
    TriggerParameters* parameters = nullptr;
    if (!driver || !step([&] { parameters = driver->queryTriggerParameters(); }))
        return stored();
    if (!parameters)
        return chosen;
    const SourceSwitches switches(step, *driver, *parameters);
    const TriggerSource before = stored();
    if (!chosen.isChannel())
        return before.isChannel() && switches.write(before, false) ? before : chosen;
    SourceSwitches::Sources from = switches.markedBesides({before, chosen});
    if (before.isChannel())
        from.insert(from.begin(), before);
    return switches.move(from, chosen);
}

} // namespace ko
