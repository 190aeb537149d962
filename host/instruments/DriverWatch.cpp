#include "host/instruments/DriverWatch.h"

namespace ko {

/// Observes one driver and shares its ownership.
class DriverWatch::Listener final : public CallObserver {
public:
    Listener(DriverWatch& watch, std::size_t index, std::shared_ptr<HostInstrument> driver)
        : watch_(watch), index_(index), driver_(std::move(driver))
    {
        driver_->calls().observe(this);
    }
    ~Listener() override { driver_->calls().observe(nullptr); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    bool observes(Operation operation) override
    {
        return isWanted(operation) || watch_.health_.awaits(*driver_, operation);
    }
    void called(const DriverCall& call) override
    {
        watch_.health_.answered(*driver_, call);
        if (isWanted(call.operation))
            watch_.called({index_, *driver_}, call);
    }
    void failed(const FailedCall& call) override
    {
        watch_.health_.failed(*driver_, call);
        if (watch_.failed)
            watch_.failed({index_, *driver_}, call);
    }

private:
    [[nodiscard]] bool isWanted(Operation operation) const { return watch_.called && watch_.wanted(operation); }

    DriverWatch& watch_;
    std::size_t index_;
    std::shared_ptr<HostInstrument> driver_;
};

DriverWatch::DriverWatch(std::function<DateTime()> now) : health_(std::move(now)) {}
DriverWatch::~DriverWatch() = default;

void DriverWatch::watch(const HostInstruments& drivers)
{
    listeners_.clear();
    health_.watch(drivers);
    listenTo(drivers);
}

void DriverWatch::follow(const HostInstruments& drivers)
{
    listeners_.clear();
    health_.follow(drivers);
    listenTo(drivers);
}

void DriverWatch::listenTo(const HostInstruments& drivers)
{
    for (std::size_t i = 0; i < drivers.size(); ++i)
        listeners_.push_back(std::make_unique<Listener>(*this, i, drivers[i]));
}

} // namespace ko
