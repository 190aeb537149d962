#pragma once

#include "page/OfferAccount.h"

#include <cstddef>
#include <vector>

namespace ko {

/// Leaves in `a` the values that also occur in `b`, in the order of `a`, duplicates of `a` included; compared for exact
/// equality. The others are added to `removed`. Takes time in proportion to both lengths together where both are in
/// order, rising or falling, else to n log n of them.
void commonValues(std::vector<double>& a, std::vector<double> b, std::vector<double>& removed);

/// Leaves in the list the values within the range, bounds included, without tolerance, in their order. The others are
/// added to `removed`.
void valuesInRange(std::vector<double>& list, Range range, std::vector<double>& removed);

/// What all drivers have in common of one quantity, merged driver by driver: a list of values, or where no driver's
/// list remains the range that they share; and the account of how that came about, which grows by one entry a driver
/// and by the values that leave the common list.
///
/// A list that becomes empty because two drivers share no value counts as empty again: the next driver with a list
/// starts it afresh. Values that are not above 0 and finite are left out, and ranges that are not finite. A range whose
/// minimum is above its maximum lets nothing through.
class MergedChoices {
public:
    /// Reserves the account of this many drivers. Of `periods` also those without a finite reciprocal are left out.
    explicit MergedChoices(std::size_t drivers = 0, bool periods = true) : periods_(periods)
    {
        account_.drivers.reserve(drivers);
    }

    /// A driver that offers these values, at least one. Empty after leaving out what cannot be a choice: false,
    /// and nothing is merged.
    bool addList(std::vector<double> choices);
    /// A driver that offers no list but this range; 0 or less in both bounds: it offers nothing.
    void addRange(Range range);
    /// A driver that cannot be asked.
    void addNone();
    /// Something that the driver added last was asked has failed.
    void markFailed() { account_.drivers.back().hasFailed = true; }

    [[nodiscard]] const std::vector<double>& values() const { return values_; }
    /// The range kept; 0 and 0 when none is.
    [[nodiscard]] Range range() const { return range_; }
    /// The account of the drivers added so far.
    [[nodiscard]] OfferAccount account() &&;

private:
    [[nodiscard]] bool canBeChosen(double value) const;
    DriverOffer& add(DriverOffer::Kind kind, Range offered);
    void begin(DriverOffer& offer, std::vector<double> choices);
    void settle(DriverOffer& offer);
    void narrow(DriverOffer& offer);

    bool periods_;
    std::vector<double> values_;
    Range range_;
    OfferAccount account_;
    std::size_t unusable_ = 0; ///< of the list that has just been found to hold no choice
};

} // namespace ko
