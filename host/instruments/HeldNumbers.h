#pragma once

#include "host/instruments/InstrumentSettings.h"
#include "page/Quantities.h"

namespace ko {

/// A number of a timebase and the member of `TimebaseSettings` that holds it.
struct HeldNumber {
    const TimebaseNumber* number;
    QuantitySettings TimebaseSettings::*held;
};

inline constexpr std::array heldNumbers{
    HeldNumber{&timebaseNumber::samplePeriod, &TimebaseSettings::samplePeriod},
    HeldNumber{&timebaseNumber::blockSize, &TimebaseSettings::blockSize},
    HeldNumber{&timebaseNumber::scanPeriod, &TimebaseSettings::scanPeriod},
};
static_assert(heldNumbers.size() == timebaseNumber::all.size());

} // namespace ko
