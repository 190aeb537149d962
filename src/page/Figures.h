#pragma once

#include "interfaces/Values.h"

#include <cstdint>
#include <optional>

namespace ko {

/// Estimated figures of the recording. A figure that is not set is unknown or does not apply.
struct Figures {
    std::optional<double> span;           ///< in hertz
    std::optional<double> plannedSeconds; ///< as entered and accepted by the drivers
    std::optional<double> actualSeconds;  ///< as the instruments will record
    std::optional<DateTime> stopTime;     ///< end of the recording; only for a stop at a time
    std::optional<std::int32_t> samples;  ///< of the driver shown in the dynamic editors
    std::optional<std::int32_t> scans;    ///< of the driver shown in the static editors
    std::optional<double> samplePeriod;   ///< in seconds, as read for `samples`
    std::optional<double> blockSize;      ///< as read for `samples`
    std::optional<double> scanPeriod;     ///< in seconds, as read for `scans`
    std::optional<double> dynamicBytes;   ///< of all dynamic drivers
    std::optional<double> staticBytes;
};

} // namespace ko
