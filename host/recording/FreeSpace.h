#pragma once

#include "host/recording/RecordingPlan.h"

namespace ko {

/// Bytes that a file of this recording takes on the disk.
double spaceFor(const RecordingPlan& plan);

/// Bytes that are kept free for what is on its way to the file when the disk gets full, and for the file's end.
inline constexpr double reserveBytes = 96.0 * 1024 * 1024;

/// Bytes that can be written into the folder of this file; infinite if the system does not say.
double freeBytesFor(const std::string& file);

} // namespace ko
