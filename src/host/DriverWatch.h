#pragma once

#include "host/DriverHealth.h"

#include <functional>
#include <memory>

namespace ko {

/// Hears every write to the instruments and every call of theirs that fails, for whoever wants to show it, and keeps
/// account of those that fail at present.
class DriverWatch {
public:
    /// `now` is the time that failures are noted with.
    explicit DriverWatch(std::function<DateTime()> now);
    ~DriverWatch();
    DriverWatch(const DriverWatch&) = delete;
    DriverWatch& operator=(const DriverWatch&) = delete;

    /// Watches these and no others any more.
    void watch(const SimulatedDrivers& drivers);

    [[nodiscard]] DriverHealth& health() { return health_; }

    std::function<void(const SimulatedDriver&, const DriverCall&)> written;
    std::function<void(const SimulatedDriver&, const FailedCall&)> failed;

private:
    class Listener;

    DriverHealth health_;
    std::vector<std::unique_ptr<Listener>> listeners_;
};

} // namespace ko
