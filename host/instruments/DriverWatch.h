#pragma once

#include "host/instruments/DriverHealth.h"

#include <functional>
#include <memory>

namespace ko {

/// Observes the instruments: tracks which ones fail, and notifies its owner of the wanted calls and of every failed
/// call.
class DriverWatch {
public:
    /// `now` returns the time of a failure.
    explicit DriverWatch(std::function<DateTime()> now);
    ~DriverWatch();
    DriverWatch(const DriverWatch&) = delete;
    DriverWatch& operator=(const DriverWatch&) = delete;

    struct Watched {
        std::size_t index; ///< in the list passed to `watch`
        const HostInstrument& driver;
    };

    /// Observes these instruments instead of the previous ones.
    void watch(const HostInstruments& drivers);

    /// As `watch`, but instruments that have been observed before still count as failing.
    void follow(const HostInstruments& drivers);

    [[nodiscard]] DriverHealth& health() { return health_; }

    /// Returns whether `called` is to be called for this operation. Default: every write.
    std::function<bool(Operation)> wanted = isWrite;
    std::function<void(const Watched&, const DriverCall&)> called;
    std::function<void(const Watched&, const FailedCall&)> failed;

private:
    class Listener;

    void listenTo(const HostInstruments& drivers);

    DriverHealth health_;
    std::vector<std::unique_ptr<Listener>> listeners_;
};

} // namespace ko
