#include "schedule/StartStop.h"

#include "page/Hints.h"
#include "platform/NumberText.h"

namespace ko {

StartStop::StartStop(Page& page, Support& support, Actions& actions, Recording& recording)
    : page_(page), support_(support), actions_(actions), recording_(recording)
{
    page.optImmediate.click = [this] { startClicked("optImmediate_Click", startMode::immediately); };
    page.optOnTrigger.click = [this] { startClicked("optOnTrigger_Click", startMode::onTrigger); };
    page.optStartTime.click = [this] { startClicked("optStartTime_Click", startMode::atTime); };
    page.optAfter.click = [this] { stopClicked("optAfter_Click", stopMode::afterDuration); };
    page.optStopTime.click = [this] { stopClicked("optStopTime_Click", stopMode::atTime); };
    // A click on the selected option takes effect while its setting is unknown.
    page.optStartTime.clickAgain = [this] {
        if (page_.txtStartTime.text().empty())
            startClicked("optStartTime_Click", startMode::atTime);
    };
    page.optAfter.clickAgain = [this] {
        if (!recording_.isStopModeKnown())
            stopClicked("optAfter_Click", stopMode::afterDuration);
    };
    page.optImmediate.gotFocus = [this] { optionGotFocus("optImmediate_GotFocus"); };
    page.optOnTrigger.gotFocus = [this] { optionGotFocus("optOnTrigger_GotFocus"); };
    page.optStartTime.gotFocus = [this] { optionGotFocus("optStartTime_GotFocus"); };
    page.optAfter.gotFocus = [this] { optionGotFocus("optAfter_GotFocus"); };
    page.optStopTime.gotFocus = [this] { optionGotFocus("optStopTime_GotFocus"); };
}

void StartStop::optionGotFocus(std::string_view procedure)
{
    const Steps step(support_.errors, procedure);
    step([&] { setToolTip(page_, support_, noRange, noRange); });
}

bool StartStop::forceStopAfter()
{
    if (page_.optStartTime.value() || page_.optAfter.value())
        return false;
    page_.optAfter.showSelected();
    return true;
}

void StartStop::startClicked(std::string_view procedure, std::int32_t mode)
{
    if (page_.isLoading)
        return;
    const Steps step(support_.errors, procedure);
    StartStopSettings change;
    change.startMode = mode;
    const bool forced = forceStopAfter();
    if (forced || !recording_.isStopModeKnown())
        change.stopMode = page_.optAfter.value() ? stopMode::afterDuration : stopMode::atTime;
    const bool ready = mode != startMode::atTime || step([&] {
                           recording_.fillStartTime();
                           change.startTime = recording_.enteredStart();
                       });
    if (!ready) {
        recording_.putBack();
        return;
    }
    // Check the limit first, so that a refusal leaves the trigger unchanged.
    const Recording::Result result = write(step, change);
    if (result == Recording::Result::PutBack)
        return;
    enableStartControls();
    if (forced)
        enableStopControls();
    recording_.accepted(step, result);
}

void StartStop::stopClicked(std::string_view procedure, std::int32_t mode)
{
    if (page_.isLoading)
        return;
    const Steps step(support_.errors, procedure);
    if (mode == stopMode::atTime && !step([&] { recording_.fillStopTime(); })) {
        recording_.putBack();
        return;
    }
    StartStopSettings change;
    change.stopMode = mode;
    const Recording::Result result = write(step, change);
    if (result == Recording::Result::PutBack)
        return;
    enableStopControls();
    recording_.accepted(step, result);
}

/// Writes the mode together with the duration, if that is known. When a time on the page cannot be read, restores the
/// options and writes nothing.
Recording::Result StartStop::write(const Steps& step, StartStopSettings change)
{
    const bool known = step([&] {
        if (const auto seconds = recording_.plannedSeconds(); seconds >= 0.0)
            change.duration = toSingle(*seconds);
    });
    if (!known) {
        recording_.putBack();
        return Recording::Result::PutBack;
    }
    return recording_.write(step, change, [this] { recording_.putBack(); });
}

void StartStop::enableStartControls()
{
    const Steps step(support_.errors, "enableStartControls");
    const bool onTrigger = page_.optOnTrigger.value();
    if (onTrigger)
        actions_.enableTriggering(onTrigger);
    else
        actions_.disableTriggering(onTrigger);
    forceStopAfter();
    const bool editable = page_.optStartTime.value() && !page_.readOnly;
    page_.txtStartTime.setEnabled(editable);
    page_.cmdStartTime.setEnabled(editable);
    page_.optStopTime.setEnabled(editable);
    if (page_.optStartTime.value() && !page_.isLoading)
        step([&] { followFilled(recording_.fillStartTime()); });
    if (!onTrigger && !page_.readOnly && !page_.isLoading)
        actions_.clearTriggerSource();
}

void StartStop::enableStopControls()
{
    const Steps step(support_.errors, "enableStopControls");
    const bool after = page_.optAfter.value();
    page_.txtDuration.setEnabled(after && !page_.readOnly);
    page_.cmbInterval.setEnabled(after && !page_.readOnly);
    page_.txtStopTime.setEnabled(!after && !page_.readOnly);
    page_.cmdStopTime.setEnabled(!after && !page_.readOnly);
    if (!after && !page_.isLoading)
        step([&] { followFilled(recording_.fillStopTime()); });
}

/// The labels have been updated before: only a mode that a driver keeps against the click leaves a time to fill.
void StartStop::followFilled(bool isOther)
{
    if (isOther)
        actions_.refreshEstimate();
}

} // namespace ko
