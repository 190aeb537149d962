#pragma once

#include "host/setup/SetupFile.h"
#include "platform/Locale.h"

#include <string>

namespace ko {

/// The start conditions of a page without a window.
struct ScenarioOptions {
    Setup setup;
    std::string folder;   ///< base of a script's relative paths
    Locale locale;        ///< English (United States) unless given
    std::string language; ///< content of a string file, or empty
    /// Whether scripts may write recordings; scripts that are made up may not.
    bool mayRecord = true;
    std::shared_ptr<DeviceSource> devices = {}; ///< opens the devices of set-ups; empty: there are none
};

} // namespace ko
