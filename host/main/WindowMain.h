#pragma once

#include <string>

namespace ko {

/// What the user asked for on the command line.
struct WindowOptions {
    std::string setup;    ///< path of the set-up file to open; empty: none
    std::string language; ///< content of a string file as the component takes it; empty: English
    std::string capture;  ///< path of a file to capture a scenario into; empty: none
    std::string picture;  ///< path of a file to paint the page into before leaving; empty: stay open
};

/// Runs the frame window until the user closes it and answers the exit status. `argc` and `argv` are those of the
/// program and stay valid meanwhile.
int runWindow(int& argc, char** argv, const WindowOptions& options);

} // namespace ko
