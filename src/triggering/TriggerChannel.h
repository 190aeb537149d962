#pragma once

#include "triggering/ParamGrid.h"
#include "triggering/TriggerSource.h"

#include <functional>
#include <optional>

namespace ko {

class SelectChannel;
class TriggerParameters;

/// The trigger area: the channel of the start master that starts the recording, its caption, and its parameters.
class TriggerChannel {
public:
    /// Makes the component's dialog on first use.
    using Dialog = std::function<SelectChannel&()>;

    /// Takes over the events of its controls. Everything passed in outlives the section.
    TriggerChannel(Page& page, Support& support, Actions& actions, Dialog dialog);

    /// A page is being built: triggering counts as switched on anew.
    void beginBuild() { isOn_ = false; }
    /// Another driver may be start master, or it may have other channels: a stored channel that it lacks is forgotten,
    /// and the rows of another driver go. Reports its own failures.
    void followStartMaster();

    /// See `Actions`. A disabled channel is told of once for each time triggering is switched on.
    void enableTriggering(bool onTrigger);
    void disableTriggering(bool onTrigger);
    void clearTriggerSource();

private:
    void cmdChannel_Click();
    std::optional<TriggerSource> choose(const Steps& step);
    bool store(const Steps& step, const TriggerSource& chosen);
    TriggerSource moved(const Steps& step, const TriggerSource& chosen) const;
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
    std::weak_ptr<Driver> shownFrom_; ///< the driver that the grid's rows belong to
    bool isOn_ = false;
};

} // namespace ko
