#pragma once

#include "schedule/LargestFit.h"

#include <array>

namespace ko {

/// After a refusal by the 2 GB limit, and for settings that exceed it when the page is built, answers on the page and
/// in the hint line what was wanted: the wanted value with the other setting that fits it, and the wanted setting as
/// far as the present other one allows it. Each answer has a button that enters it.
class WhatFits {
public:
    /// Sets the event handlers of its buttons. Referenced objects must outlive this object.
    WhatFits(Page& page, Support& support, Actions& actions, Recording& recording);

    /// Shows what fits. `periods` are those of the refused kind's rate list in seconds (empty when a box is shown).
    /// Reports its own failures.
    void tell(const LimitRefusal& refusal, const std::vector<double>& periods);

    /// Hides the answers, because other settings are in force.
    void withdraw();

private:
    /// The settings that a button enters.
    struct Answer {
        std::optional<double> seconds{};
        std::optional<EditedValue> value{};
        bool isForAll = false; ///< the value is for every driver, although its editor sets only the current one
        /// A duration to be entered first, which fits at the present rate where that exceeds the limit.
        std::optional<double> secondsBefore{};
    };

    [[nodiscard]] std::string answers(const Forecast& forecast, SizeSettings wanted,
                                      const std::vector<double>& periods);
    [[nodiscard]] std::string answerByRate(const LargestFit& fit, const SizeSettings& wanted);
    [[nodiscard]] std::string answerByDuration(const LargestFit& fit, const SizeSettings& wanted);
    [[nodiscard]] std::string rateText(const EditedValue& value) const;
    [[nodiscard]] std::string stopText(double seconds) const;
    [[nodiscard]] std::string captionOf(const Answer& answer) const;

    void show(const Steps& step, const std::string& text);
    void take(std::optional<Answer>& offered, const char* handler);
    void enter(const Steps& step, double seconds);
    void enter(const Steps& step, const EditedValue& value);
    [[nodiscard]] std::string valueText(const Answer& answer) const;

    Page& page_;
    Support& support_;
    Actions& actions_;
    Recording& recording_;
    const Quantity* rate_ = &rateOf(timebaseNumber::samplePeriod); ///< of the refused kind of measurement
    std::optional<Answer> byDuration_, byRate_;
    std::uint32_t told_ = 0;                        ///< number of refusals that were answered
    const std::array<std::string, 2> idleCaptions_; ///< of the buttons for duration and rate while they offer nothing
};

} // namespace ko
