#include "host/instruments/CallGate.h"

#include <algorithm>
#include <charconv>

namespace ko {

namespace {

std::optional<std::int32_t> callNumber(std::string_view operation)
{
    std::int32_t number = 0;
    const char* const end = operation.data() + operation.size();
    if (operation.size() < 2 || operation.front() != '#')
        return std::nullopt;
    const auto [stop, error] = std::from_chars(operation.data() + 1, end, number);
    if (error != std::errc{} || stop != end || number < 1)
        return std::nullopt;
    return number;
}

} // namespace

void CallGate::runDuring(Operation operation)
{
    const auto found =
        std::find_if(during_.begin(), during_.end(), [&](const auto& waiting) { return waiting.first == operation; });
    if (found == during_.end())
        return;
    const auto act = std::move(found->second);
    during_.erase(found);
    act();
}

bool CallGate::fail(const SimulatedFailure& failure)
{
    const auto operation = findOperation(failure.operation);
    const auto number = callNumber(failure.operation);
    if (!operation && !number)
        return false;
    const std::int64_t call = calls_ + number.value_or(0);
    std::erase_if(planned_,
                  [&](const Planned& p) { return p.operation == operation && (operation || p.call == call); });
    planned_.push_back({failure, operation, call});
    return true;
}

bool CallGate::heal(std::string_view operation)
{
    const auto wanted = findOperation(operation);
    if (!wanted && !callNumber(operation))
        return false;
    std::erase_if(planned_, [&](const Planned& p) {
        return wanted ? p.operation == wanted : !p.operation && p.failure.operation == operation;
    });
    return true;
}

void CallGate::healAll()
{
    planned_.clear();
}

std::vector<SimulatedFailure> CallGate::failing() const
{
    std::vector<SimulatedFailure> result;
    for (const Planned& planned : planned_) {
        result.push_back(planned.failure);
        result.back().operation =
            planned.operation ? failingName(*planned.operation) : "#" + std::to_string(planned.call - calls_);
    }
    return result;
}

void CallGate::failIfPlanned(Operation operation)
{
    const auto found = std::find_if(planned_.begin(), planned_.end(), [&](const Planned& p) {
        return p.operation ? *p.operation == operation : p.call == calls_;
    });
    if (found == planned_.end())
        return;
    const SimulatedFailure failure = found->failure;
    // A failure planned for this call number is used up, too, when the operation's own failure comes first.
    std::erase_if(planned_, [&](const Planned& p) { return !p.operation && p.call == calls_; });
    throw Failure(failure.number, failure.description);
}

} // namespace ko
