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

/// Chooses the trigger lines of the start and the sync trigger: automatically when the page is built, and by the user
/// in the dialog that the menu item opens.
class TriggerLineChoice {
public:
    /// Returns the component's dialog, creating it on first use.
    using Dialog = std::function<AdvancedTrig&()>;

    /// Sets the menu item's event handler. Referenced objects must outlive this object.
    TriggerLineChoice(Page& page, Support& support, Actions& actions, Triggering& triggering, Dialog dialog);

    /// Chooses both lines for the page's drivers and masters and writes them to the drivers. A line that a master
    /// already drives is kept; when both masters drive the same line, the start trigger keeps it. Reports its own
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
    PerTrigger<UsableLinesByDriver> usable_; ///< of the page's drivers, as surveyed by `build`
};

} // namespace ko
