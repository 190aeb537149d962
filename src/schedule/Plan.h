#pragma once

#include "page/Page.h"
#include "schedule/PlanTimes.h"
#include "support/Support.h"

namespace ko {

/// Summarizes the recording in one sentence: how it starts, how long it lasts, its size and when it ends; and as a
/// timeline. Uses only the page's controls, the figures of the last estimate and the clock; calls no driver.
class Plan {
public:
    Plan(Page& page, Support& support) : page_(page), support_(support), times_(page, support) {}

    /// Updates the sentence and the times from the page. Reports its own failures.
    void show();

private:
    [[nodiscard]] std::string sentence(const Moments& moments) const;
    [[nodiscard]] std::string startTime(const Moments& moments) const;
    [[nodiscard]] int start() const;
    [[nodiscard]] bool isDurationKnown() const;
    [[nodiscard]] std::string entered() const;
    [[nodiscard]] std::string trigger() const;
    [[nodiscard]] std::string triggerConditions() const;
    [[nodiscard]] std::string figures() const;
    [[nodiscard]] const std::string& text(int number) const { return support_.text(number); }

    Page& page_;
    Support& support_;
    PlanTimes times_;
};

} // namespace ko
