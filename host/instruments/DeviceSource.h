#pragma once

#include "host/instruments/Instrument.h"

#include <memory>

namespace ko {

/// Opens devices by driver modules.
class DeviceSource {
public:
    virtual ~DeviceSource() = default;

    /// Opens the device that this module describes as `device`. Fails with a `Failure` that names what is missing.
    virtual std::unique_ptr<Instrument> open(const std::string& module, const std::string& device,
                                             const DeviceOptions& options) = 0;
};

} // namespace ko
