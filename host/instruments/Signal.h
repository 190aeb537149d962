#pragma once

#include "host/instruments/InstrumentSettings.h"

#include <span>

namespace ko {

/// What a simulated channel measures, sample by sample. Sample k is taken k periods after the start of time.
class Signal {
public:
    /// The noise depends on the settings' seed, `address` and the sample's number alone. Samples are limited to
    /// `range`, if there is one.
    Signal(const SignalSettings& settings, const std::string& address, double period, const Range& range = {});

    [[nodiscard]] double at(std::int64_t sample) const;

    /// Fills `samples` with the ones from `first` on, to single precision.
    void fill(std::span<float> samples, std::int64_t first) const;

private:
    /// Cycles since the start of time.
    [[nodiscard]] double cycles(std::int64_t sample) const;
    [[nodiscard]] double noise(std::int64_t sample) const;
    void fillSine(std::span<float> samples, std::int64_t first) const;

    SignalSettings settings_;
    double period_;
    double phase_; ///< in cycles
    std::uint64_t seed_;
    double lowest_, highest_;
};

} // namespace ko
