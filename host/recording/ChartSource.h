#pragma once

#include "host/instruments/Acquisition.h"
#include "host/recording/Envelope.h"

namespace ko {

/// A channel that a chart can show.
struct ChartChannel {
    std::size_t instrument = 0; ///< in the set-up
    std::string instrumentName;
    ArmedChannel channel;
    double period = 0.0; ///< seconds
};

/// What a user has marked.
struct Marker {
    double time = 0.0; ///< seconds after the start of the recording
    std::string text;  ///< may be empty

    static constexpr std::size_t textSize = 256; ///< bytes of a text in a file; longer ones are shortened

    bool operator==(const Marker&) const = default;
};

/// What has been measured by a channel until now.
struct ChannelState {
    double start = 0.0;       ///< of its first sample, seconds after the start of the recording
    std::int64_t samples = 0; ///< with the lost ones
    std::int64_t clipped = 0; ///< samples at a limit of the channel's range
    float latest = 0.0F;      ///< NaN: none
};

/// What has been measured until now.
struct ChartState {
    std::vector<ChannelState> channels; ///< in the order of `ChartSource::channels`
    std::optional<double> trigger;      ///< seconds after the start of the recording
    std::vector<Marker> markers;

    /// The time after the last sample, in seconds after the start of the recording.
    [[nodiscard]] double end(const std::vector<ChartChannel>& described) const;
};

/// What charts show: a recording or a monitor that is running or has ended, or a file. Called on the user-interface
/// thread; no call waits for an instrument or for the disk.
class ChartSource {
public:
    virtual ~ChartSource() = default;

    /// The channels, always the same ones.
    [[nodiscard]] virtual const std::vector<ChartChannel>& channels() const = 0;
    [[nodiscard]] virtual ChartState state() const = 0;
    /// Whether what is returned can still become finer or more by itself, without a recording or a monitor that runs.
    [[nodiscard]] virtual bool isGrowing() const { return false; }
    /// See `Envelope::extents`. The time does not depend on the number of samples.
    [[nodiscard]] virtual std::vector<Extent> extents(std::size_t channel, const SampleSpan& span) const = 0;
};

} // namespace ko
