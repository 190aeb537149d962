#pragma once

#include "page/OfferAccount.h"

#include <cstddef>
#include <vector>

namespace ko {

/// Keeps in `a` the values that also occur in `b`, in the order of `a` and with its duplicates; compares for exact
/// equality. The other values are appended to `removed`. Takes O(n) time when each is sorted, ascending or descending,
/// else O(n log n), where n is the sum of both lengths.
void commonValues(std::vector<double>& a, std::vector<double> b, std::vector<double>& removed);

/// Keeps in the list the values within the range, including the bounds, without tolerance and in their order. The other
/// values are appended to `removed`.
void valuesInRange(std::vector<double>& list, Range range, std::vector<double>& removed);

/// The values of one quantity that all drivers offer, merged driver by driver: a list of values or, when no list
/// remains, the common range. Also the account of the merge, which grows by one entry per driver and by the values that
/// are removed from the common list.
///
/// When the common list becomes empty because two drivers share no value, the next driver with a list starts a new one.
/// Values that are not above 0 and finite are ignored, and so are ranges that are not finite. A range whose minimum is
/// above its maximum accepts nothing.
class MergedChoices {
public:
    /// `drivers` is the number of drivers to reserve the account for. With `periods`, values without a finite
    /// reciprocal are ignored, too.
    explicit MergedChoices(std::size_t drivers = 0, bool periods = true) : periods_(periods)
    {
        account_.drivers.reserve(drivers);
    }

    /// Adds a driver that offers these values, at least one. Returns false, and merges nothing, when none of them can
    /// be a choice.
    bool addList(std::vector<double> choices);
    /// Adds a driver that offers no list but this range; bounds of 0 or less mean that it offers nothing.
    void addRange(Range range);
    /// Adds a driver that cannot be queried.
    void addNone();
    /// Records that a query to the driver added last has failed.
    void markFailed() { account_.drivers.back().hasFailed = true; }

    [[nodiscard]] const std::vector<double>& values() const { return values_; }
    /// The common range; 0 and 0 when there is none.
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
    std::size_t unusable_ = 0; ///< size of the list that `addList` has just rejected
};

} // namespace ko
