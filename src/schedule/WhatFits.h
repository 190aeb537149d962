#pragma once

#include "page/Quantities.h"
#include "schedule/Forecast.h"
#include "schedule/Recording.h"

namespace ko {

/// After a refusal by the 2 GB limit: the longest duration and the highest rate that would have fitted the settings in
/// force, told in the hint line and on the page, each with a button that enters it.
class WhatFits {
public:
    /// Takes over the events of its buttons. Everything passed in outlives it.
    WhatFits(Page& page, Support& support, Recording& recording);

    /// For a code of `Actions::updateDiskSpace`; `periods` are those of the rate list's entries, in seconds (none: a
    /// box is shown). Reports its own failures.
    void tell(std::int32_t code, const std::vector<double>& periods);

    /// Other settings are in force: nothing is offered any more.
    void withdraw();

private:
    struct Offered {
        std::string text; ///< of the box, or of the stop time
        std::int32_t entry = -1;
    };

    [[nodiscard]] std::string offerDuration(const Forecast& forecast);
    [[nodiscard]] std::string offerRate(const Forecast& forecast, const std::vector<double>& periods);
    [[nodiscard]] std::optional<Offered> rateFromList(const Forecast& forecast, const std::vector<double>& periods);
    [[nodiscard]] std::optional<Offered> rateForBox(const Forecast& forecast);
    [[nodiscard]] std::optional<double> longest(const Forecast& forecast) const;
    [[nodiscard]] bool fits(const Forecast& forecast, double period) const;
    void show(const Steps& step, const std::string& text);
    void takeDuration();
    void takeRate();

    Page& page_;
    Support& support_;
    Recording& recording_;
    const Quantity* quantity_ = &rateOf(timebaseNumber::samplePeriod); ///< the rate that the message was about
    std::optional<Offered> duration_, rate_;
};

} // namespace ko
