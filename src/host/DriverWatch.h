#pragma once

#include "host/SimulatedDriver.h"

#include <functional>
#include <memory>

namespace ko {

/// Hears every write to the instruments and every call of theirs that fails, for whoever wants to show it.
class DriverWatch {
public:
    DriverWatch();
    ~DriverWatch();
    DriverWatch(const DriverWatch&) = delete;
    DriverWatch& operator=(const DriverWatch&) = delete;

    /// Watches these and no others any more.
    void watch(const SimulatedDrivers& drivers);

    std::function<void(const SimulatedDriver&, const DriverCall&)> written;
    std::function<void(const SimulatedDriver&, const FailedCall&)> failed;

private:
    class Listener;

    std::vector<std::unique_ptr<Listener>> listeners_;
};

} // namespace ko
