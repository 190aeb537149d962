#pragma once

#include "interfaces/Values.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace ko {

/// What one driver offers for a quantity, and its effect on the values common to the drivers before it.
struct DriverOffer {
    enum class Kind : std::uint8_t {
        NoTimebase, ///< it could not be queried
        Nothing,    ///< it offers neither choices nor a range
        List,
        Range
    };
    enum class Effect : std::uint8_t {
        None,    ///< the common values are unchanged
        Begins,  ///< no common values before: its offer becomes the common one
        Removes, ///< removes some of the common values
        Empties, ///< no common value remains; the next list starts again
        Narrows  ///< narrows the common range to `kept`
    };

    Kind kind = Kind::Nothing;
    Effect effect = Effect::None;
    bool hasFailed = false;        ///< one of the queries failed
    std::uint32_t choices = 0;     ///< number of values in its list that can be chosen
    std::uint32_t unusable = 0;    ///< number of values in its list that cannot be chosen
    std::uint32_t removedFrom = 0; ///< index in `OfferAccount::removed` of the first value that it removed
    std::uint32_t removed = 0;     ///< number of values that it removed
    Range offered;                 ///< the range, or the lowest and highest values of the list
    Range kept;                    ///< the common range after this driver; 0 and 0 for none
};

/// A driver's number as last read. It is read when the page is built, after each write, and when the comparison of the
/// drivers is opened.
struct Reading {
    std::optional<double> asked; ///< the number written last; none: not written since the page was built
    std::optional<double> held;  ///< none: not read, or the last reading failed
};

/// Why a quantity's editors accept what they accept, and what the drivers hold. Periods in seconds, block sizes in
/// samples.
struct OfferAccount {
    std::vector<DriverOffer> drivers; ///< one for each entry of the driver list
    std::vector<double> removed;      ///< the values removed from the common list, driver by driver
    std::uint32_t common = 0;         ///< number of values that all drivers share
    Range commonValues;               ///< the lowest and highest of them
    Range range;                      ///< the range common to all drivers; 0 and 0 for none
    std::vector<Reading> readings;    ///< one for each entry of the driver list
    std::optional<double> shown;      ///< the number that the editors show; none: the one that the drivers hold

    /// False for a driver that could not be queried, or whose offer is not known while the page is being rebuilt.
    [[nodiscard]] bool hasTimebase(std::size_t driver) const
    {
        return driver < drivers.size() && drivers[driver].kind != DriverOffer::Kind::NoTimebase;
    }
    /// Records the number that a driver holds; none when its reading failed.
    void noteRead(std::int32_t driver, const std::optional<double>& held)
    {
        if (Reading* reading = readingOf(driver))
            reading->held = held;
    }
    /// Records the number that a driver kept after a write, which the editors are about to show.
    void noteWritten(std::int32_t driver, double asked, const std::optional<double>& kept)
    {
        if (Reading* reading = readingOf(driver))
            *reading = {asked, kept};
        shown.reset();
    }

private:
    Reading* readingOf(std::int32_t driver)
    {
        const auto index = static_cast<std::size_t>(driver);
        return driver >= 0 && index < readings.size() ? &readings[index] : nullptr;
    }
};

} // namespace ko
