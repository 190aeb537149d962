#pragma once

#include "host/SimulatedDriver.h"
#include "interfaces/Values.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace ko {

/// A call to a driver that failed.
struct DriverFailure {
    std::size_t driver = 0; ///< its place in the list
    std::string name;       ///< the driver's
    Operation operation = Operation::GroupCount;
    std::vector<std::int32_t> arguments;
    std::int32_t number = 0;
    std::string reason;
    DateTime time;
};

/// Which drivers fail at present. A driver fails from its first call that fails until it has answered again, that is
/// until each of the calls that failed, known by operation and arguments, has succeeded, or until the page has been
/// rebuilt with calls to the driver of which none failed.
class DriverHealth {
public:
    /// `now` is asked for the time of each failure.
    explicit DriverHealth(std::function<DateTime()> clock) : now(std::move(clock)) {}

    /// These drivers and no others from now on. Nothing is known of them yet.
    void watch(const SimulatedDrivers& drivers);

    void failed(const SimulatedDriver& driver, const FailedCall& call);
    /// Whether it matters that a call of this operation succeeds; cheap while the driver does not fail.
    [[nodiscard]] bool awaits(const SimulatedDriver& driver, Operation operation) const;
    void answered(const SimulatedDriver& driver, const DriverCall& call);

    /// Runs `build`, which rebuilds the page.
    template <class Build> void rebuild(const Build& build)
    {
        const std::vector<Before> before = beforeRebuild();
        build();
        afterRebuild(before);
    }

    /// The last failed call, of those not answered yet, of each driver that fails; in the order of the drivers.
    [[nodiscard]] std::vector<DriverFailure> failing() const;

    std::function<DateTime()> now;
    /// `failing` answers something else.
    std::function<void()> changed;

private:
    using Call = std::pair<Operation, std::vector<std::int32_t>>;
    struct Failed {
        std::int64_t turn = 0;
        std::int32_t number = 0;
        std::string reason;
        DateTime time;
    };
    struct Trouble {
        std::map<Call, Failed> open; ///< the calls that failed last time; never empty
        std::int64_t lastTurn = 0;   ///< of the driver's last failure
    };
    struct Before {
        std::shared_ptr<SimulatedDriver> driver;
        std::int64_t calls, turn;
    };

    [[nodiscard]] std::vector<Before> beforeRebuild() const;
    void afterRebuild(const std::vector<Before>& before);

    SimulatedDrivers drivers_;
    std::map<const SimulatedDriver*, Trouble> troubles_;
    std::int64_t turn_ = 0; ///< counts failures
};

} // namespace ko
