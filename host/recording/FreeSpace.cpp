#include "host/recording/FreeSpace.h"

#include <filesystem>
#include <limits>

namespace ko {

double spaceFor(const RecordingPlan& plan)
{
    // A last chunk for each channel, which may be nearly empty, and the tables.
    constexpr double tables = 262144.0;
    double bytes = tables;
    for (const PlannedInstrument& it : plan.instruments) {
        const double chunk =
            it.settings.isDynamic ? std::max<double>(16384, static_cast<double>(it.settings.blockSize)) : 1024;
        bytes += it.bytes() + static_cast<double>(it.settings.channels.size()) * 4.0 * chunk;
    }
    return bytes;
}

double freeBytesFor(const std::string& file)
{
    std::error_code unknown;
    const auto folder = std::filesystem::absolute(file, unknown).parent_path();
    const auto space = std::filesystem::space(folder, unknown);
    return unknown ? std::numeric_limits<double>::infinity() : static_cast<double>(space.available);
}

} // namespace ko
