#pragma once

#include "triggering/ParamGrid.h"
#include "triggering/TriggerSource.h"

#include <functional>
#include <optional>

namespace ko {

class SelectChannel;
class TriggerParameters;

/// The trigger area: the channel of the start master that triggers the recording, its caption and its parameters.
class TriggerChannel {
public:
    /// Returns the component's dialog, creating it on first use.
    using Dialog = std::function<SelectChannel&()>;

    /// Sets the event handlers of its controls. Referenced objects must outlive this object.
    TriggerChannel(Page& page, Support& support, Actions& actions, Dialog dialog);

    /// Called when the page is being built: the next `enableTriggering` counts as switching triggering on.
    void beginBuild() { isOn_ = false; }
    /// Called when the start master or its channels may have changed: clears a stored channel that the master lacks,
    /// and the grid rows of another driver. Reports its own failures.
    void followStartMaster();

    /// See `Actions`. A message warns of a disabled channel once each time triggering is switched on.
    void enableTriggering(bool onTrigger);
    void disableTriggering(bool onTrigger);
    void clearTriggerSource();

private:
    void cmdChannel_Click();
    [[nodiscard]] std::vector<std::string> notesOn(const Steps& step, const Driver& offered) const;
    std::optional<TriggerSource> choose(const Steps& step);
    bool store(const Steps& step, const TriggerSource& chosen);
    TriggerSource moveSource(const Steps& step, const TriggerSource& chosen) const;
    [[nodiscard]] std::optional<SourceSwitches> switches(const Steps& step) const;
    void switchOn(const Steps& step, const SourceSwitches& driver, const SourceSwitches::Sources& others);
    void keep(const TriggerSource& source);
    void showChannel(const Steps& step);
    void showArea(bool on);
    void followUsability();
    void warnOfDisabledChannel(const Steps& step);
    [[nodiscard]] std::shared_ptr<Driver> master() const;
    [[nodiscard]] TriggerSource stored() const { return {page_.TriggerSlot, page_.TriggerChannel}; }

    Page& page_;
    Support& support_;
    Actions& actions_;
    Dialog dialog_;
    ParamGrid grid_;
    std::weak_ptr<Driver> shownFrom_; ///< the driver whose parameters the grid shows
    bool isOn_ = false;
};

} // namespace ko
