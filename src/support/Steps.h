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
/// When the reporter itself fails the handler ends quietly: its later steps do nothing. So do the later steps of an
/// event, and of the procedures that it calls between its steps, once the list of drivers or the document is another.
class Steps {
public:
    enum class Begin : std::uint8_t {
        Within,  ///< of the event that called it between two of its steps, else a new event
        Anew,    ///< always a new event: a host's call
        ToTheEnd ///< a value is put back: neither another list nor the end of the document stops it
    };

    Steps(Errors& errors, std::string_view procedure, int sourceText = errorSource::page, Begin begin = Begin::Within)
        : errors_(errors), procedure_(procedure), sourceText_(sourceText), outer_(errors.events.innermost_),
          outerIsInStatement_(std::exchange(errors.events.isInStatement_, false)), goesOn_(begin == Begin::ToTheEnd),
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

    /// Runs a statement. Whether it succeeded and the event goes on.
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

    /// Computes a value; 0, false, empty or none when that fails, or when the event is over.
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

    /// Whether nothing more is to be done: the reporter has failed, or the list of drivers or the document is another.
    [[nodiscard]] bool isOver() const { return ended_ || isSuperseded(); }
    /// The list of drivers or the document is another.
    [[nodiscard]] bool isSuperseded() const { return !goesOn_ && (hasOtherList() || errors_.events.isEnded_); }
    /// Another list of drivers has been handed over.
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
    bool goesOn_;
    std::uint64_t generation_;
    mutable bool ended_ = false;
};

} // namespace ko
