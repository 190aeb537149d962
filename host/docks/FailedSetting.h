#pragma once

#include "host/instruments/Operations.h"
#include "widgets/support/Convert.h"

namespace ko {

/// Returns what has failed when an instrument's operation fails, in the words of the page: "Scan period could not be
/// read".
QString failedSetting(Operation operation, const Texts& texts);

} // namespace ko
