#pragma once

#include "host/setup/JsonTree.h"
#include "host/setup/SetupFile.h"

namespace ko {

/// The set-up of a file. Refuses (`JsonRefusal`) unknown and missing keys and values that do not fit.
Setup readSetup(const JsonValue& json);

} // namespace ko
