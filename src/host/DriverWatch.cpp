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

    bool hears(Operation operation) override { return watch_.written && isWrite(operation); }
    void called(const DriverCall& call) override { watch_.written(*driver_, call); }
    void failed(const FailedCall& call) override
    {
        if (watch_.failed)
            watch_.failed(*driver_, call);
    }

private:
    DriverWatch& watch_;
    std::shared_ptr<SimulatedDriver> driver_;
};

DriverWatch::DriverWatch() = default;
DriverWatch::~DriverWatch() = default;

void DriverWatch::watch(const SimulatedDrivers& drivers)
{
    listeners_.clear();
    for (const auto& driver : drivers)
        listeners_.push_back(std::make_unique<Listener>(*this, driver));
}

} // namespace ko
