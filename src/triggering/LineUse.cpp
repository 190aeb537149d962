#include "triggering/LineUse.h"

namespace ko {

LineMask commonLines(const LineOffers& offers)
{
    LineMask available;
    available.fill(true);
    for (const LineOffer& offer : offers)
        for (std::size_t line = 0; line < available.size() && offer.lines; ++line)
            available[line] = available[line] && (*offer.lines)[line];
    return available;
}

LineUse lineUse(const LineRole& role, std::int32_t line, LineTrigger trigger, const LinePlan& plan)
{
    const LineOffer& offer = role.offer;
    const bool offered = offer.lines && offer.lines->at(static_cast<std::size_t>(line));
    const bool refused = offer.lines && !offered;
    const bool chosen = line == plan.line(trigger);
    if (offer.isMaster && chosen)
        return refused ? LineUse::mustDrive : LineUse::drives;
    // A listener's offer does not apply to the line that it drives.
    if (!offer.isMaster && line == role.drives)
        return LineUse::drives;
    if (chosen)
        return refused ? LineUse::mustListen : LineUse::listens;
    if (line == plan.line(otherThan(trigger)))
        return LineUse::taken;
    if (!offer.lines)
        return LineUse::unknown;
    if (refused)
        return LineUse::unusable;
    return offer.isMaster ? LineUse::canDrive : LineUse::canListen;
}

} // namespace ko
