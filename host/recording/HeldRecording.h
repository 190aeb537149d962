#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ko {

/// What a file holds of an instrument.
struct HeldInstrument {
    std::size_t index = 0; ///< in the set-up
    std::string name;
    double period = 0.0; ///< seconds
    std::int64_t blockSize = 1;
    std::int64_t lost = 0;
    std::size_t channels = 0;
    std::int64_t samples = 0;             ///< of each channel; the fewest
    double bytes = 0.0;                   ///< of all samples
    std::optional<std::int64_t> promised; ///< samples of each channel by the plan in the file
};

struct HeldRecording {
    std::string state;                       ///< see `recordedState`
    std::vector<HeldInstrument> instruments; ///< by index
    std::string title;
    std::string start; ///< of the earliest sample, ISO 8601
    std::string setup; ///< the text of the set-up
};

/// Reads what a recording's file holds, also while it is being written. Fails with an `InputError`.
HeldRecording heldIn(const std::string& file);

} // namespace ko
