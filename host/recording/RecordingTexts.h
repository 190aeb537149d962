#pragma once

#include "host/recording/RecordingPlan.h"
#include "host/recording/RecordingProgress.h"

#include <string>

namespace ko {

/// Formats a number of bytes as "1.5 MB".
std::string byteText(double bytes);

/// The plan as JSON, for the file.
std::string planText(const RecordingPlan& plan);

/// The program that records, with its version.
std::string programText();

/// "complete", "stopped" or "failed"; "recording" before the end.
const char* stateText(RunState state);

/// One line about a recording that is running: "recording, 12.3 s, 1.5 MB, 0 samples lost", and ", 7 clipped" if
/// there are any.
std::string progressText(const RecordingProgress& progress);

} // namespace ko
