#pragma once

#include "page/OfferTexts.h"
#include "page/Page.h"
#include "support/Steps.h"
#include "support/Support.h"
#include "timebase/ShowOffers.h"

#include <functional>

namespace ko {

struct Quantity;

/// The buttons beside the editors of rates, periods and the block size, which explain why an editor accepts what it
/// accepts.
class OfferButtons {
public:
    /// Returns the component's dialog.
    using Dialog = std::function<ShowOffers&()>;

    /// Sets the buttons' event handlers. Referenced objects must outlive this object.
    OfferButtons(Page& page, Support& support, Dialog dialog);

    /// Shows each button if its editor's frame is shown, else hides it.
    void follow();

private:
    void pressed(const Quantity& quantity);
    [[nodiscard]] std::vector<Table::Row> rows(const Steps& step, const OfferAccount& account,
                                               const OfferTexts& texts) const;
    [[nodiscard]] std::string nameOf(const Steps& step, std::size_t driver) const;

    Page& page_;
    Support& support_;
    Dialog dialog_;
};

} // namespace ko
