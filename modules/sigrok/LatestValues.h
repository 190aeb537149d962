#pragma once

#include "modules/sigrok/Intake.h"

namespace ko::sigrok {

/// Scans what a device without a sample rate delivers, as a meter: each scan has the last value of each channel, NaN
/// before the first one, and when none has come for a minute and three scans: the device may be off.
class LatestValues final : public Intake {
public:
    /// Scan k is due k periods after the origin, from scan `first` on.
    LatestValues(std::size_t channels, double period, std::int64_t scans, std::int64_t first, BlockSink& sink);

    void append(std::size_t channel, std::span<const float> samples) override;
    void trigger(double /*time*/) override {}
    /// Delivers the scans that have become due, with the values before this time.
    void advance(double time) override;

    void finish() override {}
    bool beginsAgain() override { return false; }
    [[nodiscard]] bool isComplete() const override { return next_ >= end_; }
    [[nodiscard]] bool mayEnd() const override { return false; }
    [[nodiscard]] std::int64_t next() const override { return next_; }

private:
    BlockSink& sink_;
    double period_;
    std::int64_t next_;
    std::int64_t end_;
    std::vector<float> values_;
    std::vector<std::int64_t> staleFrom_; ///< the scan from which a channel's value is too old
};

} // namespace ko::sigrok
