#pragma once

#include "interfaces/Values.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace ko {

/// What one driver offered of a quantity, and what that did to what the drivers before it have in common.
struct DriverOffer {
    enum class Kind : std::uint8_t {
        NoTimebase, ///< it could not be asked
        Nothing,    ///< neither choices nor a range
        List,
        Range
    };
    enum class Effect : std::uint8_t {
        None,    ///< what the drivers have in common stays as it is
        Begins,  ///< there was nothing in common before: now there is what it offers
        Removes, ///< some of the common values go
        Empties, ///< no common value remains, and the next list begins afresh
        Narrows  ///< the common range becomes `kept`
    };

    Kind kind = Kind::Nothing;
    Effect effect = Effect::None;
    bool hasFailed = false;        ///< something that it was asked failed
    std::uint32_t choices = 0;     ///< how many values its list has, less those that cannot be chosen
    std::uint32_t unusable = 0;    ///< how many of its values cannot be chosen
    std::uint32_t removedFrom = 0; ///< where what it removed begins in `OfferAccount::removed`
    std::uint32_t removed = 0;     ///< and how many values that are
    Range offered;                 ///< the range, or the lowest and the highest value of the list
    Range kept;                    ///< the common range after it; 0 and 0 for none
};

/// A driver that read back another value than the one written, or could not be read.
struct KeptOtherwise {
    std::int32_t driver = -1;
    double asked = 0.0;
    std::optional<double> kept;
};

/// How it comes that a quantity's editors take what they take. Periods in seconds, block sizes in samples.
struct OfferAccount {
    std::vector<DriverOffer> drivers;         ///< one for each entry of the driver list
    std::vector<double> removed;              ///< the values that left the common list, driver by driver
    std::uint32_t common = 0;                 ///< how many values all drivers share in the end
    Range commonValues;                       ///< the lowest and the highest of them
    Range range;                              ///< the range kept in the end; 0 and 0 for none
    std::vector<KeptOtherwise> keptOtherwise; ///< of the last write

    /// Notes what a driver made of a value written to it.
    void noteWritten(std::int32_t driver, double asked, const std::optional<double>& kept)
    {
        if (kept != asked)
            keptOtherwise.push_back({driver, asked, kept});
    }
};

} // namespace ko
