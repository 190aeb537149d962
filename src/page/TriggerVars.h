#pragma once

#include "interfaces/Values.h"

namespace ko {

/// A copy of the recording's start and stop settings, with the types of the timebase's properties.
struct TriggerVars {
    std::int32_t startMode = startMode::immediately;
    DateTime startTime;
    std::int32_t stopMode = stopMode::afterDuration;
    float duration = 0.0F; ///< seconds

    bool operator==(const TriggerVars&) const = default;
};

} // namespace ko
