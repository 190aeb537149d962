#pragma once

#include "page/Quantities.h"
#include "schedule/Forecast.h"
#include "schedule/Recording.h"

namespace ko {

/// After a refusal by the 2 GB limit, shows the longest duration and the highest rate that fit the other settings in
/// force, in the hint line and on the page, each with a button that enters it.
class WhatFits {
public:
    /// Sets the event handlers of its buttons. Referenced objects must outlive this object.
    WhatFits(Page& page, Support& support, Recording& recording);

    /// Shows what fits after a code of `Actions::updateDiskSpace`. `periods` are those of the rate list's entries in
    /// seconds (empty when a box is shown). Reports its own failures.
    void tell(std::int32_t code, const std::vector<double>& periods);

    /// Hides the offers, because other settings are in force.
    void withdraw();

private:
    struct Suggestion {
        std::string text; ///< of the box, or of the stop time
        std::int32_t entry = -1;
    };

    [[nodiscard]] std::string offerDuration(const Forecast& forecast);
    [[nodiscard]] std::string offerRate(const Forecast& forecast, const std::vector<double>& periods);
    [[nodiscard]] std::optional<Suggestion> rateFromList(const Forecast& forecast, const std::vector<double>& periods);
    [[nodiscard]] std::optional<Suggestion> rateForBox(const Forecast& forecast);
    [[nodiscard]] std::optional<double> longest(const Forecast& forecast) const;
    [[nodiscard]] bool fits(const Forecast& forecast, double period) const;
    void show(const Steps& step, const std::string& text);
    void takeDuration();
    void takeRate();

    Page& page_;
    Support& support_;
    Recording& recording_;
    const Quantity* quantity_ = &rateOf(timebaseNumber::samplePeriod); ///< the rate of the refused kind of measurement
    std::optional<Suggestion> duration_, rate_;
};

} // namespace ko
