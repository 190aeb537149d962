#pragma once

#include "page/Page.h"
#include "schedule/Moments.h"
#include "support/Steps.h"

namespace ko {

/// Shows the plan's times: the timeline, and beside the times of start and stop the day and how far they are. Uses the
/// same sources as `Moments`.
class PlanTimes {
public:
    PlanTimes(Page& page, const Support& support) : page_(page), support_(support) {}

    void show(const Steps& step, const Moments& moments);

private:
    void showDays(const Moments& moments);
    [[nodiscard]] Timeline::Points points(const Moments& moments) const;
    [[nodiscard]] Timeline::Points atTime(const Moments& moments) const;
    [[nodiscard]] Timeline::Mark startMark(const Moments& moments) const;
    [[nodiscard]] Timeline::Mark stopMark(const std::string& distance) const;
    [[nodiscard]] Timeline::Stretch recording() const;
    [[nodiscard]] std::string inWords(const Timeline::Points& points) const;
    [[nodiscard]] const std::string& text(int number) const { return support_.text(number); }

    Page& page_;
    const Support& support_;
};

} // namespace ko
