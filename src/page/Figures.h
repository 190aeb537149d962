#pragma once

#include "interfaces/Values.h"

#include <cstdint>
#include <optional>

namespace ko {

/// What the recording will produce. A figure that is not set is not known, or not of use now.
struct Figures {
    std::optional<double> span;           ///< in hertz
    std::optional<double> plannedSeconds; ///< as entered, and kept by the drivers
    std::optional<double> actualSeconds;  ///< as the instruments record
    std::optional<DateTime> stopTime;     ///< when they end; only of a stop at a time
    std::optional<std::int32_t> samples;  ///< of the driver that the dynamic editors show
    std::optional<std::int32_t> scans;    ///< of the driver that the static editors show
    std::optional<double> samplePeriod;   ///< in seconds, as read from the driver for the samples
    std::optional<double> blockSize;      ///< likewise
    std::optional<double> scanPeriod;     ///< in seconds, as read from the driver for the scans
    std::optional<double> dynamicBytes;   ///< of all drivers of the kind
    std::optional<double> staticBytes;
};

} // namespace ko
