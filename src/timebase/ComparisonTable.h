#pragma once

#include "page/OfferTexts.h"
#include "page/Quantities.h"
#include "page/StartStopSettings.h"
#include "platform/Table.h"
#include "support/Support.h"

#include <vector>

namespace ko {

/// Describes side by side what the drivers hold, as last read: a row for each driver, a column for each quantity that
/// the page shows, for start, duration and share of the disk space; then the columns of `OfferTexts` for one quantity.
/// A value that differs from the one shown on the page is emphasized and marked by a word. Calls no driver.
class ComparisonTable {
public:
    /// `quantity` is the one whose offers are described; `schedules` has one entry for each driver.
    ComparisonTable(const Page& page, const Support& support, const Quantity& quantity,
                    const std::vector<StartStopSettings>& schedules);

    [[nodiscard]] std::vector<std::string> columns() const;
    [[nodiscard]] std::vector<Table::Row> rows() const;

    /// The column of a quantity that the page shows, and the first of those that describe offers.
    [[nodiscard]] std::size_t columnOf(const Quantity& quantity) const;
    [[nodiscard]] std::size_t offersColumn() const { return columns().size() - offers_.columns().size(); }
    /// The row of the first driver that differs; 0 when none does.
    [[nodiscard]] std::size_t firstDiffering(const Quantity& quantity) const;

private:
    using Cell = Table::Cell;

    [[nodiscard]] Cell quantity(const Quantity& quantity, std::size_t driver) const;
    [[nodiscard]] Cell start(const StartStopSettings& held) const;
    [[nodiscard]] Cell duration(const StartStopSettings& held) const;
    [[nodiscard]] Cell share(std::size_t driver) const;
    [[nodiscard]] Cell compared(std::string text, bool differs) const;
    [[nodiscard]] std::string startText(const StartStopSettings& held) const;
    [[nodiscard]] Cell notRead() const;

    const Page& page_;
    const Support& support_;
    const Quantity& explained_;
    const std::vector<StartStopSettings>& schedules_;
    OfferTexts offers_;
    StartStopSettings first_; ///< of the first driver with a timebase, which the page shows
};

/// The quantities that the page shows, in its order.
std::vector<const Quantity*> shownQuantities(const Page& page);

} // namespace ko
