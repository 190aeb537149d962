#pragma once

#include "host/recording/HeldRecording.h"
#include "host/recording/RecordingPlan.h"

namespace ko {

/// What the page promises beside what a recording holds.
struct Comparison {
    std::string text;   ///< a table, a figure a line
    bool isKept = true; ///< whether everything that is judged is the same
};

/// Compares samples, periods, block sizes, channels and the state. Bytes are shown without a judgement, and so is a
/// number of samples that the instrument fixes.
Comparison compare(const RecordingPlan& promised, const HeldRecording& held);

} // namespace ko
