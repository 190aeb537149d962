#pragma once

#include "page/Quantities.h"
#include "support/Support.h"

#include <cmath>

namespace ko {

/// The number that the page shows: the one that its editors show or, before they show the outcome of a write, the one
/// that the driver of the editors holds. None while it is unknown.
std::optional<double> shownNumber(const Page& page, const TimebaseNumber& number);

/// Whether two numbers are the same to 13 significant digits; numbers are shown with 15.
inline bool isSameNumber(double one, double other)
{
    constexpr double tolerance = 1e-13;
    return one == other || std::abs(one - other) < tolerance * std::abs(other);
}

/// Whether a driver's number has an effect: dynamic drivers sample blocks, static ones scan. Only their numbers are
/// compared. Takes the kinds of the drivers from the last estimate.
bool isUsedBy(const Page& page, const TimebaseNumber& number, std::size_t driver);

/// Whether the driver uses the number and holds another one than `shown`, as last read.
bool differs(const Page& page, const TimebaseNumber& number, std::size_t driver, double shown);
/// The same for the number that the page shows; false while that is unknown.
bool differs(const Page& page, const TimebaseNumber& number, std::size_t driver);

/// The name of a driver as read when the page was built, else its position in the list.
std::string driverName(const Page& page, std::size_t driver);

/// Names the drivers that differ, with what they hold, a sentence for each number; empty when none does. Calls no
/// driver. Failures reach the caller.
std::string differencesText(const Page& page, const Support& support);

/// Shows beside each editor of the number how many drivers differ from it; hides the marks when none does. Calls no
/// driver. Failures reach the caller.
void showDifferences(Page& page, const Support& support, const TimebaseNumber& number);

} // namespace ko
