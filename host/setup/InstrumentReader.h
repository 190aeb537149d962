#pragma once

#include "host/instruments/InstrumentSettings.h"
#include "host/setup/JsonNode.h"

namespace ko {

/// One driver of a set-up file. Refuses unknown and missing keys and values that do not fit.
InstrumentSettings readInstrument(const JsonNode& node);

} // namespace ko
