#pragma once

#include "host/setup/SetupFile.h"
#include "platform/Locale.h"

#include <functional>
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
    /// Throws an `InputError` for a file that scripts must not write; may be empty.
    std::function<void(const std::string& file)> refuseOwn = {};
    std::shared_ptr<DeviceSource> devices = {}; ///< opens the devices of set-ups; empty: there are none
};

} // namespace ko
