#pragma once

#include "page/Page.h"
#include "page/StartStopSettings.h"
#include "support/Steps.h"

#include <vector>

namespace ko {

/// Called when the page is built, after the first estimate: reads the drivers' names, and the sample period and block
/// size of the dynamic drivers that the page has not read for its editors, so that it can show which of them differ.
/// The scan periods have been read back already.
void readOtherDrivers(Page& page, const Steps& step);

/// Reads all numbers, the start and the duration of every driver, and its name. Returns the start and stop settings,
/// one for each entry of the driver list; empty for a driver without a timebase.
std::vector<StartStopSettings> readEveryDriver(Page& page, const Steps& step);

} // namespace ko
