#pragma once

#include "interfaces/Values.h"

#include <vector>

namespace ko {

/// The values of `a` that also occur in `b`, in the order of `a`, duplicates of `a` included; compared for exact
/// equality. Takes time in proportion to both lengths together where both are in order, rising or falling, else to
/// n log n of them.
std::vector<double> commonValues(std::vector<double> a, std::vector<double> b);

/// The values within the range, bounds included, without tolerance, in their order.
std::vector<double> valuesInRange(const std::vector<double>& list, Range range);

/// What all drivers have in common of one quantity, merged driver by driver: a list of values, or where no driver's
/// list remains the range that they share.
///
/// A list that becomes empty because two drivers share no value counts as empty again: the next driver with a list
/// starts it afresh. Values that are not above 0 and finite are left out, and
/// ranges that are not finite. A range whose minimum is above its maximum
/// lets nothing through.
class MergedChoices {
public:
    /// A driver that offers these values, at least one. Empty after leaving out what cannot be a choice: false,
    /// and nothing is merged.
    bool addList(std::vector<double> choices);
    /// A driver that offers no list but this range; 0 or less in both bounds: it offers nothing.
    void addRange(Range range);

    [[nodiscard]] const std::vector<double>& values() const { return values_; }
    /// The range kept; 0 and 0 when none is.
    [[nodiscard]] Range range() const { return range_; }

private:
    std::vector<double> values_;
    Range range_;
};

} // namespace ko
