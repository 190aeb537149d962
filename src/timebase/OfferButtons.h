#pragma once

#include "page/Actions.h"
#include "page/Page.h"
#include "page/StartStopSettings.h"
#include "support/Steps.h"
#include "support/Support.h"
#include "timebase/SetAll.h"
#include "timebase/ShowOffers.h"

#include <functional>

namespace ko {

/// The buttons beside the editors of rates, periods and the block size: one explains why the editor accepts what it
/// accepts, the other, the mark, is shown while drivers differ. Both open the comparison of the drivers.
class OfferButtons {
public:
    /// Returns the component's dialog.
    using Dialog = std::function<ShowOffers&()>;

    /// Sets the buttons' event handlers. Referenced objects must outlive this object.
    OfferButtons(Page& page, Support& support, Actions& actions, SetAll& setAll, Dialog dialog);

    /// Shows each explaining button if its editor's frame is shown, else hides it, and updates the marks.
    void follow();

private:
    void pressed(const CommandButton& button, const Quantity& quantity);
    [[nodiscard]] ShowOffers::Source source(const Steps& step, const Quantity& quantity, bool isMark,
                                            const std::vector<StartStopSettings>& schedules);
    /// The quantities that can be set at present, and their values on the page.
    [[nodiscard]] std::vector<const Quantity*> settableOnes() const;
    [[nodiscard]] std::vector<ShowOffers::Settable> settableValues() const;

    Page& page_;
    Support& support_;
    Actions& actions_;
    SetAll& setAll_;
    Dialog dialog_;
};

} // namespace ko
