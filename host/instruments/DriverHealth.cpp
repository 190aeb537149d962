#include "host/instruments/DriverHealth.h"

#include <algorithm>
#include <unordered_set>

namespace ko {

void DriverHealth::watch(const HostInstruments& drivers)
{
    drivers_ = drivers;
    troubles_.clear();
    if (changed)
        changed();
}

void DriverHealth::follow(const HostInstruments& drivers)
{
    std::unordered_set<const HostInstrument*> tracked;
    for (const auto& driver : drivers)
        tracked.insert(driver.get());
    std::erase_if(troubles_, [&](const auto& trouble) { return !tracked.contains(trouble.first); });
    drivers_ = drivers;
    if (changed)
        changed();
}

void DriverHealth::failed(const HostInstrument& driver, const FailedCall& call)
{
    Trouble& trouble = troubles_[&driver];
    trouble.open[{call.operation, call.arguments}] = {++turn_, call.failure.number(), call.failure.what(), now(),
                                                      driver.timesOpened()};
    if (changed)
        changed();
}

bool DriverHealth::awaits(const HostInstrument& driver, Operation operation) const
{
    if (troubles_.empty())
        return false;
    const auto trouble = troubles_.find(&driver);
    if (trouble == troubles_.end())
        return false;
    const auto first = trouble->second.open.lower_bound({operation, {}});
    return first != trouble->second.open.end() && first->first.first == operation;
}

void DriverHealth::answered(const HostInstrument& driver, const DriverCall& call)
{
    const auto trouble = troubles_.find(&driver);
    if (trouble == troubles_.end())
        return;
    trouble->second.answered[call.operation] = ++turn_;
    if (trouble->second.open.erase({call.operation, call.arguments}) == 0)
        return;
    if (trouble->second.open.empty())
        troubles_.erase(trouble);
    if (changed)
        changed();
}

bool DriverHealth::Trouble::hasAnsweredSince(std::int64_t turn, Operation operation) const
{
    const auto answer = answered.find(operation);
    return answer != answered.end() && answer->second > turn &&
           std::none_of(open.begin(), open.end(), [&](const auto& failed) {
               return failed.first.first == operation && failed.second.turn > turn;
           });
}

void DriverHealth::afterRebuild(std::int64_t turn)
{
    bool isCleared = false;
    for (auto& [driver, trouble] : troubles_) {
        const auto isAnswered = [&, &t = trouble, opened = driver->timesOpened()](const auto& failed) {
            return failed.second.timesOpened != opened || t.hasAnsweredSince(turn, failed.first.first);
        };
        isCleared = std::erase_if(trouble.open, isAnswered) > 0 || isCleared;
    }
    std::erase_if(troubles_, [](const auto& trouble) { return trouble.second.open.empty(); });
    if (isCleared && changed)
        changed();
}

void DriverHealth::reopenDevices()
{
    for (const auto& driver : drivers_)
        if (troubles_.contains(driver.get()) && driver->reopenDevice())
            troubles_.erase(driver.get());
    if (changed)
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
