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

/// Which of the trigger lines carry the start and the sync trigger: chosen when a page is built, and by hand in the
/// dialog behind the menu item. The two are never the same line.
class TriggerLineChoice {
public:
    /// Makes the component's dialog on first use.
    using Dialog = std::function<AdvancedTrig&()>;

    /// Takes over the menu item's event. Everything passed in outlives the section.
    TriggerLineChoice(Page& page, Support& support, Actions& actions, Triggering& triggering, Dialog dialog);

    /// Works the lines out for the page's drivers and masters and writes them to the drivers. Both choices are made
    /// anew: a line that a master is wired to stays its line, the start's where both are wired to one. `found` says
    /// whether there is a master at all. Reports its own failures.
    void build(bool found);

private:
    void buildLists();
    void leaveOutEachOther();
    void takeFirstLines();
    void showWhetherLinesAreLeft(bool wanted);
    void mnuTimebaseTriggerLines_Click();
    void apply(const Steps& step, std::int32_t startLine, std::int32_t scanLine);
    [[nodiscard]] LineDrivers lineDrivers(const Steps& step) const;

    Page& page_;
    Support& support_;
    Actions& actions_;
    Triggering& triggering_;
    Dialog dialog_;
    LineOffers startOffers_, scanOffers_; ///< of the page's drivers, from the survey for the lists
};

} // namespace ko
