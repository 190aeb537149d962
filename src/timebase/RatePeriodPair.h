#pragma once

#include "interfaces/Timebase.h"
#include "page/Page.h"
#include "support/Steps.h"
#include "support/Support.h"
#include "support/Validation.h"
#include "timebase/ChoiceLists.h"

#include <optional>

namespace ko {

/// Which members of a timebase offer a quantity.
struct OfferMembers {
    std::vector<double> (Timebase::*choices)();
    Range (Timebase::*range)();
};

/// Merges what all drivers with a timebase offer. Choices of 0 or less are left out. A driver's range is asked for only
/// when it offers no list. The account has an entry for each driver of the list. Reports failures under `procedure`, of
/// which it is a handler of its own: a failing reporter ends the reading alone.
MergedChoices mergeOffers(Support& support, std::string_view procedure, Drivers drivers, const OfferMembers& members);

/// The bounds of a period in seconds, of a rate in 1/s, from a range of periods; 0 is no bound.
NumberBounds periodBounds(Range periods);
NumberBounds rateBounds(Range periods);

/// The four controls that edit one period and its reciprocal, the rate: two parallel lists or two text boxes.
class RatePeriodPair {
public:
    RatePeriodPair(Support& support, ComboBox& rates, ComboBox& periods, TextBox& rate, TextBox& period);

    /// Shows the lists when there are values, else the boxes, disabled when the range lets nothing through. The
    /// entry of `inForce` (seconds; none: not known) is selected, or the boxes filled from it.
    void build(const Steps& step, const MergedChoices& offers, std::optional<double> inForce);

    /// The period of an entry in seconds, which its text shows to 15 digits. Failure 9 for no entry.
    [[nodiscard]] double periodAt(std::int32_t index) const;

    /// The periods of the entries in seconds; none while the boxes are shown.
    [[nodiscard]] const std::vector<double>& periods() const { return values_; }

    /// Selects the entry of a period in both lists: the equal one, else one that differs by less than 1e-12 or reads
    /// the same. Where there is none both take `otherwise`.
    void selectPeriod(double seconds, std::int32_t otherwise);

    /// Shows a period and its rate in both boxes but the one that the user is typing in (or null).
    void showInBoxes(const Steps& step, double seconds, const TextBox* typedIn);

private:
    void fillLists(const std::vector<double>& values, std::optional<double> inForce);
    [[nodiscard]] std::string text(double value) const;

    Support& support_;
    ComboBox& rates_;
    ComboBox& periods_;
    TextBox& rate_;
    TextBox& period_;
    std::vector<double> values_; ///< the entries' periods, in seconds
};

} // namespace ko
