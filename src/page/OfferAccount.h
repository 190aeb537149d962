#pragma once

#include "interfaces/Values.h"

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

/// A driver that read back another value than the one written, or could not be read back.
struct KeptOtherwise {
    std::int32_t driver = -1;
    double asked = 0.0;
    std::optional<double> kept;
};

/// Why a quantity's editors accept what they accept. Periods in seconds, block sizes in samples.
struct OfferAccount {
    std::vector<DriverOffer> drivers;         ///< one for each entry of the driver list
    std::vector<double> removed;              ///< the values removed from the common list, driver by driver
    std::uint32_t common = 0;                 ///< number of values that all drivers share
    Range commonValues;                       ///< the lowest and highest of them
    Range range;                              ///< the range common to all drivers; 0 and 0 for none
    std::vector<KeptOtherwise> keptOtherwise; ///< drivers that differ after the last write

    /// Records the value that a driver kept after a write.
    void noteWritten(std::int32_t driver, double asked, const std::optional<double>& kept)
    {
        if (kept != asked)
            keptOtherwise.push_back({driver, asked, kept});
    }
};

} // namespace ko
