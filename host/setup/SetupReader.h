#pragma once

#include "host/setup/JsonTree.h"
#include "host/setup/SetupFile.h"

namespace ko {

/// Converts a parsed file to a set-up. Throws a `JsonRefusal` for unknown and missing keys and for invalid values.
Setup readSetup(const JsonValue& json);
/// The same for one instrument.
InstrumentSettings readInstrument(const JsonValue& json);

} // namespace ko
