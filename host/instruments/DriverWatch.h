#pragma once

#include "host/instruments/DriverHealth.h"

#include <functional>
#include <memory>

namespace ko {

/// Observes the instruments: keeps account of those that fail, and notifies its owner of the calls that it asks for and
/// of every call that fails.
class DriverWatch {
public:
    /// `now` returns the time that failures are noted with.
    explicit DriverWatch(std::function<DateTime()> now);
    ~DriverWatch();
    DriverWatch(const DriverWatch&) = delete;
    DriverWatch& operator=(const DriverWatch&) = delete;

    struct Watched {
        std::size_t index; ///< in the list given to `watch`
        const SimulatedDriver& driver;
    };

    /// Observes these instruments from now on, and no others.
    void watch(const SimulatedDrivers& drivers);

    [[nodiscard]] DriverHealth& health() { return health_; }

    /// Whether `called` is to be called for this operation; every write unless set.
    std::function<bool(Operation)> wanted = isWrite;
    std::function<void(const Watched&, const DriverCall&)> called;
    std::function<void(const Watched&, const FailedCall&)> failed;

private:
    class Listener;

    DriverHealth health_;
    std::vector<std::unique_ptr<Listener>> listeners_;
};

} // namespace ko
