#pragma once

#include "page/LimitRefusal.h"
#include "page/Quantities.h"
#include "schedule/Forecast.h"
#include "schedule/Recording.h"

#include <vector>

namespace ko {

/// A value of a quantity, as its editor shows it.
struct EditedValue {
    const Quantity* quantity = nullptr;
    std::string text;
    std::int32_t entry = -1; ///< of its list; -1 for its box
};

/// Finds the largest settings that the 2 GB limit allows, in place of a refused change. Only values that the drivers
/// offer are found. Failures reach the caller.
class LargestFit {
public:
    /// `rate` is that of the refused kind of measurement, `listed` the periods in its list (empty when a box is shown).
    /// Referenced objects must outlive this object.
    LargestFit(const Page& page, const Support& support, const Recording& recording, const Forecast& forecast,
               const Quantity& rate, const std::vector<double>& listed)
        : page_(page), support_(support), recording_(recording), forecast_(forecast), rate_(rate), listed_(listed)
    {
    }

    /// The longest duration with these other settings, in seconds; none when no duration fits.
    [[nodiscard]] std::optional<double> longest(SizeSettings others) const;
    /// The highest rate with these other settings.
    [[nodiscard]] std::optional<EditedValue> highestRate(const SizeSettings& others) const;

    /// The wanted rate or block size; none when neither is wanted.
    [[nodiscard]] std::optional<EditedValue> wanted(const SizeSettings& wanted) const;
    /// The rate of a period in seconds.
    [[nodiscard]] EditedValue rateOf(double period) const;

private:
    [[nodiscard]] bool fits(SizeSettings others, double period) const;
    [[nodiscard]] std::optional<double> shortestOf(const std::vector<double>& periods,
                                                   const SizeSettings& others) const;
    [[nodiscard]] std::optional<EditedValue> rateForBox(const SizeSettings& others, Timebase& shown) const;
    [[nodiscard]] std::string text(const Quantity& quantity, double held) const;

    const Page& page_;
    const Support& support_;
    const Recording& recording_;
    const Forecast& forecast_;
    const Quantity& rate_;
    const std::vector<double>& listed_;
};

} // namespace ko
