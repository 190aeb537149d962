#pragma once

#include "host/instruments/Instrument.h"

#include <memory>

namespace ko {

/// A device that a driver module has found, or a module without one.
struct KnownDevice {
    std::string module;  ///< its name, or its file if it cannot be loaded
    std::string device;  ///< the module's description; empty: there is only `trouble`
    std::string title;   ///< for people
    std::string trouble; ///< why the module has found nothing
};

/// Finds and opens devices by driver modules. Its members can be called on any thread.
class DeviceSource {
public:
    virtual ~DeviceSource() = default;

    /// Returns what the modules find. May take seconds.
    virtual std::vector<KnownDevice> find() = 0;

    /// Opens the device that this module describes as `device`. Fails with a `Failure` that names what is missing.
    virtual std::unique_ptr<Instrument> open(const std::string& module, const std::string& device,
                                             const DeviceOptions& options) = 0;
};

} // namespace ko
