#include "page/LinePlan.h"

#include <algorithm>

namespace ko {

LinePlan::LinePlan(const PerTrigger<LineMask>& offered, const PerTrigger<std::int32_t>& driven)
    : offered_(offered), lines_{driven.start, driven.scan == driven.start ? -1 : driven.scan}
{
}

std::int32_t LinePlan::lineOrFirst(LineTrigger trigger) const
{
    const LineMask lines = available(trigger);
    const auto first = std::find(lines.begin(), lines.end(), true);
    if (lines_[trigger] >= 0 || first == lines.end())
        return lines_[trigger];
    return static_cast<std::int32_t>(first - lines.begin());
}

void LinePlan::choose(LineTrigger trigger, std::int32_t line)
{
    const std::int32_t left = lines_[trigger];
    if (left >= 0)
        offered_[otherThan(trigger)].at(static_cast<std::size_t>(left)) = true;
    put(trigger, line);
}

void LinePlan::put(LineTrigger trigger, std::int32_t line)
{
    std::int32_t& others = lines_[otherThan(trigger)];
    const bool isShared = line >= 0 && line == others;
    if (isShared && trigger == LineTrigger::start)
        others = -1;
    lines_[trigger] = isShared && trigger == LineTrigger::scan ? -1 : line;
}

} // namespace ko
