#pragma once

#include "support/Errors.h"

#include <string_view>
#include <type_traits>
#include <utility>

namespace ko {

/// A handler as a list of steps: each that fails is reported once under the handler's name, and the next one runs.
///
///     const Steps step(errors, "cmbScanRate_Click");
///     const double rate = step.value([&] { return toDouble(page.cmbScanRate.text()); });
///     step([&] { setDriversScanRate(1.0 / nonZero(rate)); });
///
/// When the reporter itself fails the handler ends quietly: its later steps do nothing.
class Steps {
public:
    Steps(Errors& errors, std::string_view procedure, int sourceText = errorSource::page)
        : errors_(errors), procedure_(procedure), sourceText_(sourceText)
    {
    }

    /// Runs a statement. Whether it came through.
    template <class Statement> bool operator()(Statement&& statement) const
    {
        if (ended_)
            return false;
        try {
            std::forward<Statement>(statement)();
            return true;
        } catch (...) {
            reportCurrent();
            return false;
        }
    }

    /// Computes a value; 0, false, empty or none when that fails.
    template <class Expression> auto value(Expression&& expression) const
    {
        using Result = std::decay_t<std::invoke_result_t<Expression>>;
        if (!ended_) {
            try {
                return Result(std::forward<Expression>(expression)());
            } catch (...) {
                reportCurrent();
            }
        }
        return Result{};
    }

private:
    [[gnu::cold]] void reportCurrent() const noexcept;

    Errors& errors_;
    std::string_view procedure_;
    int sourceText_;
    mutable bool ended_ = false;
};

} // namespace ko
