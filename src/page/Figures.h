#pragma once

#include "interfaces/Values.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace ko {

/// What the estimate found of one driver.
struct DriverFigures {
    bool isDynamic = false;      ///< false, too, when its modes cannot be read
    std::optional<double> bytes; ///< of its recording; none when the figure failed
};

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
    std::vector<DriverFigures> drivers; ///< one for each entry of the list; as last estimated, even beyond the limit
};

} // namespace ko
