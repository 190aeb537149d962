#pragma once

#include "host/recording/ChartSource.h"
#include "host/recording/RecordingPlan.h"

#include <mutex>

namespace ko {

/// What is being measured, for charts. The instruments are numbered as in `instruments` of the constructor. The samples
/// of an instrument are appended on one thread at a time; the other members can be called on any.
class LiveSignals final : public ChartSource {
public:
    explicit LiveSignals(const std::vector<PlannedInstrument>& instruments);

    void append(std::size_t instrument, const Block& block, std::int64_t from, std::int64_t count);
    void appendLost(std::size_t instrument, std::int64_t count);
    /// Sets by how many seconds each instrument starts after the recording.
    void setStarts(const std::vector<double>& starts);
    void setTrigger(double time);
    void setMarkers(std::vector<Marker> markers);

    /// Samples of each channel at a limit of its range.
    [[nodiscard]] std::vector<std::int64_t> clipped(std::size_t instrument) const;

    [[nodiscard]] const std::vector<ChartChannel>& channels() const override { return channels_; }
    [[nodiscard]] ChartState state() const override;
    [[nodiscard]] std::vector<Extent> extents(std::size_t channel, const SampleSpan& span) const override;

private:
    struct Signal {
        explicit Signal(double period);
        void append(const ArmedChannel& channel, std::span<const float> samples);

        mutable std::mutex mutex; ///< protects the rest
        Envelope envelope;
        std::int64_t clipped = 0;
    };

    std::vector<ChartChannel> channels_;
    std::vector<std::size_t> firstOf_; ///< the number of the first channel of each instrument, and of the end
    std::vector<std::unique_ptr<Signal>> signals_;

    mutable std::mutex mutex_; ///< protects the rest
    std::vector<double> starts_;
    std::optional<double> trigger_;
    std::vector<Marker> markers_;
};

} // namespace ko
