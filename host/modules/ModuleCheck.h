#pragma once

#include "host/modules/ModuleReport.h"

#include <chrono>
#include <functional>

namespace ko {

class InstrumentModule;

struct ModuleCheckOptions {
    /// An acquisition must end by this time after its last sample.
    std::chrono::milliseconds patience{10000};
    /// How long the short runs are, if the instrument has blocks that are short enough.
    std::chrono::milliseconds run{300};
    /// Called with each call before it is made, on the thread that makes it; empty: not.
    std::function<void(const std::string& call)> beforeCall;
    /// Called with each finding as it comes, on any thread, one call at a time; empty: not.
    std::function<void(const std::string& finding)> found;
};

/// Calls everything that a driver module has, in order and out of order, with good and bad values, and each device
/// twice: it acquires for some tenths of a second. What breaks the contract of `InstrumentModule`, `Instrument`,
/// `Driver` and `Acquisition` is a finding.
ModuleReport checkModule(InstrumentModule& module, const ModuleCheckOptions& options = {});

} // namespace ko
