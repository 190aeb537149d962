#include "host/DriverWatch.h"

namespace ko {

/// Hears one driver, which it keeps alive while it listens.
class DriverWatch::Listener final : public CallObserver {
public:
    Listener(DriverWatch& watch, std::shared_ptr<SimulatedDriver> driver) : watch_(watch), driver_(std::move(driver))
    {
        driver_->calls().observe(this);
    }
    ~Listener() override { driver_->calls().observe(nullptr); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    bool hears(Operation operation) override
    {
        return isWritten(operation) || watch_.health_.awaits(*driver_, operation);
    }
    void called(const DriverCall& call) override
    {
        watch_.health_.answered(*driver_, call);
        if (isWritten(call.operation))
            watch_.written(*driver_, call);
    }
    void failed(const FailedCall& call) override
    {
        watch_.health_.failed(*driver_, call);
        if (watch_.failed)
            watch_.failed(*driver_, call);
    }

private:
    [[nodiscard]] bool isWritten(Operation operation) const { return watch_.written && isWrite(operation); }

    DriverWatch& watch_;
    std::shared_ptr<SimulatedDriver> driver_;
};

DriverWatch::DriverWatch(std::function<DateTime()> now) : health_(std::move(now)) {}
DriverWatch::~DriverWatch() = default;

void DriverWatch::watch(const SimulatedDrivers& drivers)
{
    listeners_.clear();
    health_.watch(drivers);
    for (const auto& driver : drivers)
        listeners_.push_back(std::make_unique<Listener>(*this, driver));
}

} // namespace ko
