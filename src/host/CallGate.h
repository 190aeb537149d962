#pragma once

#include "host/InstrumentSettings.h"
#include "host/Operations.h"
#include "platform/Failure.h"

#include <functional>
#include <initializer_list>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace ko {

/// A call to a simulated driver that did not fail. What it refers to lives until `called` returns.
struct DriverCall {
    Operation operation = Operation::GroupCount;
    std::initializer_list<std::int32_t> arguments;
    const nlohmann::ordered_json& value;          ///< answered by a read, requested by a write
    const nlohmann::ordered_json* kept = nullptr; ///< what a write left in the driver, where that is another value
};

/// A call that failed. What it refers to lives until `failed` returns.
struct FailedCall {
    Operation operation = Operation::GroupCount;
    std::initializer_list<std::int32_t> arguments;
    const nlohmann::ordered_json* value = nullptr; ///< requested by a write; none for a read
    const Failure& failure;
};

/// Hears the calls to a simulated driver.
class CallObserver {
public:
    virtual ~CallObserver() = default;

    /// Asked before a call's value is made ready.
    virtual bool hears(Operation operation) = 0;
    virtual void called(const DriverCall& call) = 0;
    /// Told of every operation.
    virtual void failed(const FailedCall&) {}
};

/// The way into a simulated driver: every call is counted here, fails here when it is to fail, and is told to the
/// observer.
class CallGate {
public:
    using Arguments = std::initializer_list<std::int32_t>;

    /// `observer` outlives the gate; null takes the one there was away.
    void observe(CallObserver* observer) { observer_ = observer; }
    [[nodiscard]] std::int64_t callCount() const { return calls_; }

    /// False when the failure's operation is neither an operation's name nor "#N" with N from 1. The failure of
    /// an operation or a call replaces an earlier one of the same.
    bool fail(const SimulatedFailure& failure);
    /// Lets the operation ("#N" as it was asked for) work again. False when the name is none, see `fail`.
    bool heal(std::string_view operation);
    void healAll();
    /// What is to fail, calls by their number from now on.
    [[nodiscard]] std::vector<SimulatedFailure> failing() const;

    /// Runs `act` inside the next call of this operation, before it is answered. Several queue up.
    void during(Operation operation, std::function<void()> act) { during_.emplace_back(operation, std::move(act)); }

    /// Answers what `answer` gives, unless the operation is to fail.
    template <class Answer> auto read(Operation operation, Arguments arguments, const Answer& answer)
    {
        auto value = attempt(operation, answer, [&](const Failure& failure) { tell(operation, arguments, failure); });
        if (isHeard(operation))
            tell(operation, arguments, value);
        return value;
    }

    /// Runs `change`, which answers the value that the driver then holds, unless the operation is to fail.
    template <class T, class Change>
    void write(Operation operation, Arguments arguments, const T& value, const Change& change)
    {
        const T kept =
            attempt(operation, change, [&](const Failure& failure) { tell(operation, arguments, value, failure); });
        if (isHeard(operation))
            tell(operation, arguments, value, kept);
    }

private:
    struct Planned {
        SimulatedFailure failure;
        std::optional<Operation> operation; ///< none: the call of the number `call`
        std::int64_t call = 0;
    };

    [[nodiscard]] bool isHeard(Operation operation) const { return observer_ && observer_->hears(operation); }
    void enter(Operation operation)
    {
        ++calls_;
        if (!during_.empty())
            runDuring(operation);
        if (!planned_.empty())
            failIfPlanned(operation);
    }
    void failIfPlanned(Operation operation);
    void runDuring(Operation operation);

    /// What `act` answers; a failure is handed to `complain` on its way to the caller.
    template <class Act, class Complain> auto attempt(Operation operation, const Act& act, const Complain& complain)
    {
        try {
            enter(operation);
            return act();
        } catch (const Failure& failure) {
            if (observer_)
                complain(failure);
            throw;
        }
    }

    template <class T> void tell(Operation operation, Arguments arguments, const T& value) const;
    template <class T> void tell(Operation operation, Arguments arguments, const T& value, const T& kept) const;
    template <class T>
    void tell(Operation operation, Arguments arguments, const T& value, const Failure& failure) const;
    void tell(Operation operation, Arguments arguments, const Failure& failure) const;

    CallObserver* observer_ = nullptr;
    std::int64_t calls_ = 0;
    std::vector<Planned> planned_;
    std::vector<std::pair<Operation, std::function<void()>>> during_;
};

} // namespace ko
