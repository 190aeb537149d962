#pragma once

#include "host/instruments/SimulatedDriver.h"
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
/// until each of the calls that failed, known by operation and arguments, has succeeded. When the page is rebuilt,
/// calls of an operation that is called then and does not fail count as answered whatever their arguments; an operation
/// that is not called has not answered.
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
        const std::int64_t turn = turn_;
        build();
        afterRebuild(turn);
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
        std::map<Call, Failed> open;                ///< the calls that failed last time; never empty
        std::map<Operation, std::int64_t> answered; ///< the turn of each operation's last answer

        [[nodiscard]] bool hasAnsweredSince(std::int64_t turn, Operation operation) const;
    };

    void afterRebuild(std::int64_t turn);

    SimulatedDrivers drivers_;
    std::map<const SimulatedDriver*, Trouble> troubles_;
    std::int64_t turn_ = 0; ///< counts failures, and answers of drivers that fail
};

} // namespace ko
