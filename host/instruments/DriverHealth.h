#pragma once

#include "host/instruments/HostInstrument.h"
#include "interfaces/Values.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ko {

/// A failed call to a driver.
struct DriverFailure {
    std::size_t driver = 0; ///< index in the list
    std::string name;       ///< the driver's
    Operation operation = Operation::GroupCount;
    std::vector<std::int32_t> arguments;
    std::int32_t number = 0;
    std::string reason;
    DateTime time;
};

/// Tracks which drivers fail at present. A driver fails from its first failed call until each failed call, identified
/// by operation and arguments, has succeeded. When the page is rebuilt, an operation that is called without a failure
/// clears its failed calls with any arguments; operations that are not called stay failed, unless the driver's device
/// has been opened since.
class DriverHealth {
public:
    /// `clock` returns the time of each failure.
    explicit DriverHealth(std::function<DateTime()> clock) : now(std::move(clock)) {}

    /// Tracks these drivers instead of the previous ones. None of them counts as failing yet.
    void watch(const HostInstruments& drivers);

    /// As `watch`, but the drivers that have been tracked before still count as failing.
    void follow(const HostInstruments& drivers);

    void failed(const HostInstrument& driver, const FailedCall& call);
    /// Returns whether a success of this operation has to be passed to `answered`; cheap while the driver does not
    /// fail.
    [[nodiscard]] bool awaits(const HostInstrument& driver, Operation operation) const;
    void answered(const HostInstrument& driver, const DriverCall& call);

    /// Runs `build`, which rebuilds the page, and then clears the failures of operations that succeeded meanwhile.
    /// This object may be destroyed meanwhile.
    template <class Build> void rebuild(const Build& build)
    {
        const std::int64_t turn = turn_;
        const std::weak_ptr<int> life = life_;
        build();
        if (!life.expired())
            afterRebuild(turn);
    }

    /// Returns for each failing driver its latest failed call that has not succeeded since, in the order of the
    /// drivers.
    [[nodiscard]] std::vector<DriverFailure> failing() const;

    /// Opens the devices of failing drivers again. One that is open then has no failures.
    void reopenDevices();

    std::function<DateTime()> now;
    /// Called after the result of `failing` has changed.
    std::function<void()> changed;

private:
    using Call = std::pair<Operation, std::vector<std::int32_t>>;
    struct Failed {
        std::int64_t turn = 0;
        std::int32_t number = 0;
        std::string reason;
        DateTime time;
        int timesOpened = 0; ///< the driver's device, until then
    };
    struct Trouble {
        std::map<Call, Failed> open;                ///< calls that have not succeeded since they failed; never empty
        std::map<Operation, std::int64_t> answered; ///< the turn of each operation's last success

        [[nodiscard]] bool hasAnsweredSince(std::int64_t turn, Operation operation) const;
    };

    void afterRebuild(std::int64_t turn);

    std::shared_ptr<int> life_ = std::make_shared<int>();
    HostInstruments drivers_;
    std::map<const HostInstrument*, Trouble> troubles_;
    std::int64_t turn_ = 0; ///< counts failures, and successful calls of failing drivers
};

} // namespace ko
