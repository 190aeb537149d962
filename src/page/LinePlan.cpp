#include "page/LinePlan.h"

#include <algorithm>

namespace ko {

LinePlan::LinePlan(const PerTrigger<LineMask>& offered, const PerTrigger<std::int32_t>& driven)
    : available_(offered), lines_{driven.start, driven.scan == driven.start ? -1 : driven.scan}
{
    for (const LineTrigger trigger : lineTriggers)
        mark(otherThan(trigger), lines_[trigger], false);
}

void LinePlan::mark(LineTrigger trigger, std::int32_t line, bool available)
{
    if (line >= 0)
        available_[trigger].at(static_cast<std::size_t>(line)) = available;
}

std::int32_t LinePlan::lineOrFirst(LineTrigger trigger) const
{
    const LineMask& lines = available_[trigger];
    const auto first = std::find(lines.begin(), lines.end(), true);
    if (lines_[trigger] >= 0 || first == lines.end())
        return lines_[trigger];
    return static_cast<std::int32_t>(first - lines.begin());
}

void LinePlan::choose(LineTrigger trigger, std::int32_t line)
{
    const LineTrigger other = otherThan(trigger);
    if (line >= 0 && line == lines_[other]) {
        if (trigger == LineTrigger::scan)
            return choose(trigger, -1);
        choose(other, -1);
    }
    mark(other, lines_[trigger], true);
    mark(other, line, false);
    lines_[trigger] = line;
}

} // namespace ko
