#pragma once

#include "host/instruments/CallValue.h"
#include "host/instruments/ForeignCall.h"
#include "host/modules/ModuleCheck.h"

#include <cmath>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <utility>

namespace ko {

/// A number as findings write it, also one that is not finite.
std::string checkedNumber(double number);

/// Counts the calls of a check and keeps what they do wrong. Members can be called on any thread.
class CheckLog {
public:
    explicit CheckLog(const ModuleCheckOptions& options) : options_(options) {}

    /// Findings begin with this from now on: the device, or what else is checked.
    void lookAt(std::string subject);
    /// Until `after({})` the findings are those of what this call has left.
    void after(std::string call);

    /// Keeps a finding once. Of a call that does much wrong the first findings are kept, and the number of the others.
    void blame(const std::string& call, const std::string& what);
    /// Keeps a note once.
    void note(const std::string& what);

    /// Makes a call and returns what it returns; none after a failure. A failure is a finding.
    template <class Act> auto must(const std::string& call, const Act& act)
    {
        return make(call, act, Expected::Success);
    }
    /// The call may fail, with a text.
    template <class Act> auto may(const std::string& call, const Act& act) { return make(call, act, Expected::Any); }
    /// Not to fail is a finding.
    template <class Act> auto mustFail(const std::string& call, const Act& act)
    {
        return make(call, act, Expected::Failure);
    }

    /// Makes a call that must answer what the instrument holds.
    template <class T, class Ask> void agrees(const std::string& call, const T& held, const Ask& ask)
    {
        if (const auto answer = must(call, ask); answer && *answer != held)
            blameDifference(call, callValue(*answer), callValue(held));
    }
    /// The same for a number, which must be finite.
    template <class T, class Ask> void agreesFinite(const std::string& call, T held, const Ask& ask)
    {
        if (const auto answer = must(call, ask); answer && !std::isfinite(*answer))
            blame(call, "answers " + checkedNumber(static_cast<double>(*answer)));
        else if (answer && *answer != held)
            blameDifference(call, callValue(*answer), callValue(held));
    }

    /// Returns what was found. Nothing may be called afterwards.
    ModuleReport finish();

private:
    enum class Expected { Success, Failure, Any };

    template <class Act> auto make(const std::string& call, const Act& act, Expected expected)
    {
        using Returned = std::invoke_result_t<Act>;
        using Kept = std::conditional_t<std::is_void_v<Returned>, std::monostate, std::decay_t<Returned>>;
        begin(call);
        std::optional<Kept> result;
        try {
            foreignCall([&] {
                if constexpr (std::is_void_v<Returned>) {
                    act();
                    result.emplace();
                } else {
                    result.emplace(act());
                }
            });
            if (expected == Expected::Failure)
                blame(call, "must fail, and does not");
        } catch (const Failure& failure) {
            failed(call, failure.what(), expected);
        }
        return result;
    }

    void begin(const std::string& call);
    void failed(const std::string& call, const std::string& reason, Expected expected);
    void blameDifference(const std::string& call, const CallValue& answer, const CallValue& held);

    void keep(const std::string& finding);

    const ModuleCheckOptions& options_;
    std::mutex mutex_; ///< protects the rest
    std::string subject_, after_;
    ModuleReport report_;
    std::map<std::string, std::set<std::string>> findings_; ///< by subject and call
};

} // namespace ko
