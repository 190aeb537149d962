#include "triggering/LineUse.h"

namespace ko {

LineUse lineUse(const LineOffer& offer, std::int32_t drivenLine, std::int32_t line, const ChosenLines& chosen)
{
    const bool offered = offer.lines && offer.lines->at(static_cast<std::size_t>(line));
    const bool refused = offer.lines && !offered;
    if (offer.isMaster && line == chosen.own)
        return refused ? LineUse::mustDrive : LineUse::drives;
    // What a listener offers says nothing of its driving.
    if (!offer.isMaster && line == drivenLine)
        return LineUse::drives;
    if (line == chosen.own)
        return refused ? LineUse::mustListen : LineUse::listens;
    if (line == chosen.other)
        return LineUse::taken;
    if (!offer.lines)
        return LineUse::unknown;
    if (refused)
        return LineUse::unusable;
    return offer.isMaster ? LineUse::canDrive : LineUse::canListen;
}

} // namespace ko
