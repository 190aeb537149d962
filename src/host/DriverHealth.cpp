#include "host/DriverHealth.h"

#include <algorithm>

namespace ko {

void DriverHealth::watch(const SimulatedDrivers& drivers)
{
    drivers_ = drivers;
    troubles_.clear();
    if (changed)
        changed();
}

void DriverHealth::failed(const SimulatedDriver& driver, const FailedCall& call)
{
    Trouble& trouble = troubles_[&driver];
    trouble.lastTurn = ++turn_;
    trouble.open[{call.operation, call.arguments}] = {turn_, call.failure.number(), call.failure.what(), now()};
    if (changed)
        changed();
}

bool DriverHealth::awaits(const SimulatedDriver& driver, Operation operation) const
{
    if (troubles_.empty())
        return false;
    const auto trouble = troubles_.find(&driver);
    if (trouble == troubles_.end())
        return false;
    const auto first = trouble->second.open.lower_bound({operation, {}});
    return first != trouble->second.open.end() && first->first.first == operation;
}

void DriverHealth::answered(const SimulatedDriver& driver, const DriverCall& call)
{
    const auto trouble = troubles_.find(&driver);
    if (trouble == troubles_.end() || trouble->second.open.erase({call.operation, call.arguments}) == 0)
        return;
    if (trouble->second.open.empty())
        troubles_.erase(trouble);
    if (changed)
        changed();
}

std::vector<DriverHealth::Before> DriverHealth::beforeRebuild() const
{
    std::vector<Before> before;
    for (const auto& driver : drivers_)
        if (const auto trouble = troubles_.find(driver.get()); trouble != troubles_.end())
            before.push_back({driver, driver->calls().callCount(), trouble->second.lastTurn});
    return before;
}

void DriverHealth::afterRebuild(const std::vector<Before>& before)
{
    bool answered = false;
    for (const auto& [driver, calls, turn] : before) {
        const auto trouble = troubles_.find(driver.get());
        const bool hasFailed = trouble != troubles_.end() && trouble->second.lastTurn != turn;
        if (trouble == troubles_.end() || hasFailed || driver->calls().callCount() == calls)
            continue;
        troubles_.erase(trouble);
        answered = true;
    }
    if (answered && changed)
        changed();
}

std::vector<DriverFailure> DriverHealth::failing() const
{
    std::vector<DriverFailure> result;
    for (std::size_t i = 0; i < drivers_.size(); ++i) {
        const auto trouble = troubles_.find(drivers_[i].get());
        if (trouble == troubles_.end())
            continue;
        const auto& open = trouble->second.open;
        const auto last = std::max_element(open.begin(), open.end(), [](const auto& one, const auto& other) {
            return one.second.turn < other.second.turn;
        });
        const auto& [call, failed] = *last;
        result.push_back({i, drivers_[i]->name(), call.first, call.second, failed.number, failed.reason, failed.time});
    }
    return result;
}

} // namespace ko
