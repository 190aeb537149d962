#pragma once

#include "support/Errors.h"

#include <string_view>
#include <type_traits>
#include <utility>

namespace ko {

/// Runs a handler as a list of steps: a step that fails is reported once under the handler's name, and the next one
/// runs.
///
///     const Steps step(errors, "cmbScanRate_Click");
///     const double rate = step.value([&] { return toDouble(page.cmbScanRate.text()); });
///     step([&] { setDriversScanRate(1.0 / nonZero(rate)); });
///
/// When the reporter itself fails, the handler's later steps do nothing. Once the list of drivers has been replaced or
/// the document has ended, the later steps of the event, and of the procedures that it calls between its steps, do
/// nothing either.
class Steps {
public:
    enum class Begin : std::uint8_t {
        Within,  ///< continues the event that called it between two of its steps, else a new event
        Anew,    ///< always a new event, for calls by the host
        ToTheEnd ///< restores a value: neither a new list nor the end of the document stops it
    };

    Steps(Errors& errors, std::string_view procedure, int sourceText = errorSource::page, Begin begin = Begin::Within)
        : errors_(errors), procedure_(procedure), sourceText_(sourceText), outer_(errors.events.innermost_),
          outerIsInStatement_(std::exchange(errors.events.isInStatement_, false)),
          ignoresEnd_(begin == Begin::ToTheEnd),
          generation_(outer_ && !outerIsInStatement_ && begin == Begin::Within ? outer_->generation_
                                                                               : errors.events.generation_)
    {
        errors_.events.innermost_ = this;
    }
    Steps(Errors& errors, std::string_view procedure, Begin begin) : Steps(errors, procedure, errorSource::page, begin)
    {
    }
    ~Steps();
    Steps(const Steps&) = delete;
    Steps& operator=(const Steps&) = delete;

    /// Runs a statement. Returns whether it succeeded and the event continues.
    template <class Statement> bool operator()(Statement&& statement) const
    {
        if (isOver())
            return false;
        const InStatement within(errors_.events);
        try {
            std::forward<Statement>(statement)();
            return !isSuperseded();
        } catch (...) {
            reportCurrent();
            return false;
        }
    }

    /// Computes a value; returns 0, false, empty or none when that fails or the event is over.
    template <class Expression> auto value(Expression&& expression) const
    {
        using Result = std::decay_t<std::invoke_result_t<Expression>>;
        if (!isOver()) {
            const InStatement within(errors_.events);
            try {
                Result result(std::forward<Expression>(expression)());
                if (!isOver())
                    return result;
            } catch (...) {
                reportCurrent();
            }
        }
        return Result{};
    }

    /// The handler's name.
    [[nodiscard]] std::string_view procedure() const { return procedure_; }

    /// Whether later steps do nothing: the reporter has failed, or `isSuperseded`.
    [[nodiscard]] bool isOver() const { return ended_ || isSuperseded(); }
    /// Whether the list of drivers has been replaced or the document has ended, which stops this handler.
    [[nodiscard]] bool isSuperseded() const { return !ignoresEnd_ && (hasOtherList() || errors_.events.isEnded_); }
    /// Whether the list of drivers has been replaced since the event began.
    [[nodiscard]] bool hasOtherList() const { return generation_ != errors_.events.generation_; }

private:
    class InStatement {
    public:
        explicit InStatement(Events& events) : events_(events), was_(std::exchange(events.isInStatement_, true)) {}
        ~InStatement() { events_.isInStatement_ = was_; }
        InStatement(const InStatement&) = delete;
        InStatement& operator=(const InStatement&) = delete;

    private:
        Events& events_;
        bool was_;
    };

    [[gnu::cold]] void reportCurrent() const noexcept;

    Errors& errors_;
    std::string_view procedure_;
    int sourceText_;
    const Steps* outer_;
    bool outerIsInStatement_;
    bool ignoresEnd_;
    std::uint64_t generation_;
    mutable bool ended_ = false;
};

} // namespace ko
