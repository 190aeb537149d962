#pragma once

#include "host/setup/SetupFile.h"
#include "platform/Locale.h"

#include <string>

namespace ko {

/// What a page without a window starts from.
struct ScenarioOptions {
    Setup setup;
    std::string folder;   ///< what a script's set-up files are relative to
    Locale locale;        ///< English (United States) unless given
    std::string language; ///< content of a string file, or empty
};

} // namespace ko
