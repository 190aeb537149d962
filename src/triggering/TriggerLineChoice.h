#pragma once

#include "page/Actions.h"
#include "page/Page.h"
#include "support/Steps.h"
#include "support/Support.h"
#include "triggering/LineUse.h"

#include <functional>

namespace ko {

class AdvancedTrig;
class Triggering;
struct LineDrivers;
struct TriggerMasters;

/// Which of the trigger lines carry the start and the sync trigger: chosen when a page is built, and by hand in the
/// dialog that the menu item opens.
class TriggerLineChoice {
public:
    /// Makes the component's dialog on first use.
    using Dialog = std::function<AdvancedTrig&()>;

    /// Takes over the menu item's event. Everything passed in outlives the section.
    TriggerLineChoice(Page& page, Support& support, Actions& actions, Triggering& triggering, Dialog dialog);

    /// Works the lines out for the page's drivers and masters and writes them to the drivers. Both choices are made
    /// anew: a line that a master is wired to stays its line, the start's where both are wired to one. Reports its own
    /// failures.
    void build(const TriggerMasters& masters);

private:
    [[nodiscard]] LinePlan wiredLines(const TriggerMasters& masters);
    bool write(LineTrigger trigger, std::int32_t line, std::int32_t before);
    void showWhetherLinesAreLeft(bool wanted);
    void mnuTimebaseTriggerLines_Click();
    void apply(const Steps& step, const LinePlan& before);
    [[nodiscard]] LineDrivers lineDrivers(const Steps& step) const;

    Page& page_;
    Support& support_;
    Actions& actions_;
    Triggering& triggering_;
    Dialog dialog_;
    PerTrigger<LineOffers> offers_; ///< of the page's drivers, from the survey for the lists
};

} // namespace ko
