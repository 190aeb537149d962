#pragma once

#include "host/instruments/DeviceSource.h"

#include <string>

namespace ko {

/// The command line's options for the window.
struct WindowOptions {
    std::shared_ptr<DeviceSource> devices; ///< opens the devices of set-ups
    std::string setup;                     ///< path of the set-up file to open; empty: none
    std::string language;                  ///< content of a string file; empty: English
    std::string capture;                   ///< path of a file to capture a scenario into; empty: none
    std::string picture;                   ///< path of a file to paint the page into, without staying open; empty: none
};

/// Runs the frame window until the user closes it, and returns the exit status. `argc` and `argv` are the program's own
/// and must stay valid during the call.
int runWindow(int& argc, char** argv, const WindowOptions& options);

} // namespace ko
