#pragma once

#include "host/modules/DriverAnswers.h"

namespace ko {

/// Brings the instrument, which has a timebase, to settings by which it delivers soon.
void setForShortRuns(const OpenedInstrument& opened);

/// Makes a channel that can trigger the trigger source. Returns false if there is none.
bool chooseTrigger(const OpenedInstrument& opened);

/// Compares the settings that `arm` has returned with what the instrument holds.
void compareArmed(const OpenedInstrument& opened, const ArmedSettings& armed);

} // namespace ko
