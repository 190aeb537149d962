#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ko {

/// What a recording is doing, or how it ended.
enum class RunState { WaitingForTime, WaitingForTrigger, Recording, Finishing, Done, Stopped, Failed };

/// Whether the recording has ended.
constexpr bool isOver(RunState state)
{
    return state >= RunState::Done;
}

/// What has been recorded of an instrument.
struct InstrumentProgress {
    std::size_t index = 0; ///< in the set-up
    std::string name;
    std::int64_t samples = 0; ///< of each channel, with the lost ones
    std::int64_t planned = 0;
    double bytes = 0.0; ///< of the samples of all channels
    std::int64_t lost = 0;
    std::vector<std::int64_t> clipped; ///< samples of each channel at a limit of its range
    double period = 0.0;               ///< seconds
    double startOffset = 0.0;          ///< seconds after the start of the recording
};

struct RecordingProgress {
    RunState state = RunState::WaitingForTime;
    double elapsed = 0.0; ///< seconds of the recording
    std::vector<InstrumentProgress> instruments;
    /// Why less is recorded than planned, in English: each with the instrument or the file that failed, or with the
    /// instrument that has ended early by itself.
    std::vector<std::string> failures;
    bool hasFileFailed = false; ///< the file does not hold all that was delivered
    bool takesMarkers = false;  ///< its time has begun, and it is not being finished
};

} // namespace ko
