#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace ko {

/// The settings that determine the size of a recording. A member that is not set is unknown, or stays as it is.
struct SizeSettings {
    std::optional<float> seconds{};       ///< of every driver
    std::optional<double> samplePeriod{}; ///< in seconds
    std::optional<double> blockSize{};
    std::optional<double> scanPeriod{}; ///< of every driver, in seconds
    bool ofEveryDriver = false; ///< sample period and block size, too; else only those of the driver of the editors
};

/// A change that the 2 GB limit has refused.
struct LimitRefusal {
    /// What a driver kept of the change, and the bytes of its recording then.
    struct Tried {
        SizeSettings kept{};
        std::optional<double> bytes{}; ///< none when the figure failed
    };

    std::int32_t code = 0; ///< of `Actions::updateDiskSpace`
    SizeSettings wanted{};
    std::vector<Tried> tried{}; ///< one for each entry of the driver list; empty when nothing was written
};

} // namespace ko
