#pragma once

#include "host/instruments/InstrumentSettings.h"

#include <cstdint>

namespace ko::sigrok {

/// The sample rates of a device, in hertz: a list, or a range with steps, or any.
struct SampleRates {
    std::vector<std::uint64_t> list;
    std::uint64_t minimum = 0, maximum = 0; ///< 0: no range
    std::uint64_t step = 1;

    /// The offered rate nearest to the requested period.
    [[nodiscard]] std::uint64_t nearest(double period) const;
    /// What the page offers and shows for a present rate; 0: the first offered one.
    [[nodiscard]] QuantitySettings samplePeriod(std::uint64_t present) const;
};

/// Seconds between samples at this rate.
double periodOf(std::uint64_t rate);

/// Fails with a `Failure` with both unless samples at the kept rate have the period that was set.
void checkRate(std::uint64_t kept, double period);

} // namespace ko::sigrok
