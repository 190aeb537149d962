#include "triggering/LineUse.h"

namespace ko {

LineMask commonLines(const UsableLinesByDriver& usable)
{
    LineMask available;
    available.fill(true);
    for (const UsableLines& one : usable)
        for (std::size_t line = 0; line < available.size() && one.lines; ++line)
            available[line] = available[line] && (*one.lines)[line];
    return available;
}

LineUse lineUse(const LineRole& role, std::int32_t line, LineTrigger trigger, const LinePlan& plan)
{
    const UsableLines& usable = role.usable;
    const bool isUsable = usable.lines && usable.lines->at(static_cast<std::size_t>(line));
    const bool refused = usable.lines && !isUsable;
    const bool chosen = line == plan.line(trigger);
    if (usable.isMaster && chosen)
        return refused ? LineUse::mustDrive : LineUse::drives;
    // What a listener can use does not restrict the line that it drives.
    if (!usable.isMaster && line == role.drives)
        return LineUse::drives;
    if (chosen)
        return refused ? LineUse::mustListen : LineUse::listens;
    if (line == plan.line(otherThan(trigger)))
        return LineUse::taken;
    if (!usable.lines)
        return LineUse::unknown;
    if (refused)
        return LineUse::unusable;
    return usable.isMaster ? LineUse::canDrive : LineUse::canListen;
}

} // namespace ko
