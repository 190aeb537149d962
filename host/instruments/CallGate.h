#pragma once

#include "host/instruments/CallValue.h"
#include "host/instruments/ForeignCall.h"
#include "host/instruments/InstrumentSettings.h"
#include "host/instruments/Operations.h"

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ko {

/// A call to an instrument's driver that succeeded.
struct DriverCall {
    Operation operation = Operation::GroupCount;
    std::initializer_list<std::int32_t> arguments; ///< valid until `called` returns
    CallValue value;                               ///< returned by a read, requested by a write
    std::optional<CallValue> kept;                 ///< what the driver holds after a write, if it differs from `value`
};

/// A call that failed.
struct FailedCall {
    Operation operation = Operation::GroupCount;
    std::initializer_list<std::int32_t> arguments; ///< valid until `failed` returns
    std::optional<CallValue> value;                ///< requested by a write; none for a read
    const Failure& failure;                        ///< valid until `failed` returns
};

/// Notified of the calls to an instrument's driver.
class CallObserver {
public:
    virtual ~CallObserver() = default;

    /// Returns whether `called` is to be called for this operation. Checked before the call's value is copied.
    virtual bool observes(Operation operation) = 0;
    virtual void called(const DriverCall& call) = 0;
    /// Called for every operation, whatever `observes` returns.
    virtual void failed(const FailedCall&) {}
};

/// Passes every call into an instrument's driver: counts it, makes it fail if a failure is planned, and notifies the
/// observer. Whatever a driver throws becomes a `Failure`.
class CallGate {
public:
    using Arguments = std::initializer_list<std::int32_t>;

    /// Replaces the observer; null removes it. `observer` must outlive the gate or be replaced before it is destroyed.
    void observe(CallObserver* observer) { observer_ = observer; }
    [[nodiscard]] std::int64_t callCount() const { return calls_; }

    /// Plans a failure, in place of an earlier one of the same operation or call. Returns false if the failure's
    /// operation is neither an operation's name nor "#N" with N from 1.
    bool fail(const SimulatedFailure& failure);
    /// Removes the failure planned for the operation, or for "#N" as passed to `fail`. Returns false if the name is
    /// invalid, see `fail`.
    bool heal(std::string_view operation);
    void healAll();
    /// Returns the planned failures; call numbers are relative to the present call count.
    [[nodiscard]] std::vector<SimulatedFailure> failing() const;

    /// Runs `act` inside the next call of this operation, before the call returns. Several acts queue up.
    void during(Operation operation, std::function<void()> act) { during_.emplace_back(operation, std::move(act)); }

    /// Returns the result of `answer`, or fails if a failure is planned.
    template <class Answer> auto read(Operation operation, Arguments arguments, const Answer& answer)
    {
        auto value = attempt(operation, answer, [&](const Failure& failure) {
            observer_->failed({operation, arguments, std::nullopt, failure});
        });
        if (isObserved(operation))
            observer_->called({operation, arguments, callValue(value), std::nullopt});
        return value;
    }

    /// Runs `change`, or fails if a failure is planned. `held` returns the value that the driver holds afterwards, for
    /// the observer; if that fails, the written value counts as held.
    template <class T, class Change, class Held>
    void write(Operation operation, Arguments arguments, const T& value, const Change& change, const Held& held)
    {
        attempt(operation, change, [&](const Failure& failure) {
            observer_->failed({operation, arguments, callValue(value), failure});
        });
        if (!isObserved(operation))
            return;
        const T kept = heldAfter(value, held);
        observer_->called(
            {operation, arguments, callValue(value), value == kept ? std::nullopt : std::optional(callValue(kept))});
    }

    /// Makes every call fail with this description while it is not empty, before planned failures. It must outlive the
    /// gate.
    void failWith(const std::string& trouble) { trouble_ = &trouble; }

private:
    struct Planned {
        SimulatedFailure failure;
        std::optional<Operation> operation; ///< none: the call numbered `call`
        std::int64_t call = 0;
    };

    [[nodiscard]] bool isObserved(Operation operation) const { return observer_ && observer_->observes(operation); }
    void enter(Operation operation)
    {
        ++calls_;
        if (!during_.empty())
            runDuring(operation);
        if (trouble_ && !trouble_->empty())
            throw Failure(failure::unspecified, *trouble_);
        if (!planned_.empty())
            failIfPlanned(operation);
    }
    void failIfPlanned(Operation operation);
    void runDuring(Operation operation);

    /// Returns the result of `act`; passes a failure to `complain` before it reaches the caller.
    template <class Act, class Complain> auto attempt(Operation operation, const Act& act, const Complain& complain)
    {
        try {
            enter(operation);
            return foreignCall(act);
        } catch (const Failure& failure) {
            if (observer_)
                complain(failure);
            throw;
        }
    }

    template <class T, class Held> static T heldAfter(const T& value, const Held& held)
    {
        try {
            return foreignCall(held);
        } catch (const Failure&) {
            return value;
        }
    }

    CallObserver* observer_ = nullptr;
    std::int64_t calls_ = 0;
    std::vector<Planned> planned_;
    const std::string* trouble_ = nullptr;
    std::vector<std::pair<Operation, std::function<void()>>> during_;
};

} // namespace ko
