#pragma once

#include "page/LinePlan.h"

#include <optional>
#include <string>
#include <vector>

namespace ko {

/// What a driver told of its lines when those of one trigger were worked out.
struct LineOffer {
    bool isMaster = false;         ///< it drives the trigger; the others listen
    std::optional<LineMask> lines; ///< those that it can use for its part; none where it has not told them
};

/// An offer for each driver of a list.
using LineOffers = std::vector<LineOffer>;

/// The lines that no driver excludes; one that has not told its lines excludes none.
LineMask commonLines(const LineOffers& offers);

/// What a driver does on a line for one of the two triggers, or could do.
enum class LineUse {
    unknown,   ///< it has not told whether it could use the line
    unusable,  ///< it cannot use the line for its part
    canListen, ///< it could listen there
    canDrive,  ///< it could drive the line
    taken,     ///< the line carries the other trigger
    listens,
    drives,
    mustListen, ///< it listens there although it does not offer the line
    mustDrive   ///< it drives the line although it does not offer it
};

/// A driver in front of the lines of one trigger: what it offers, and the line that it drives now (-1: none).
struct LineRole {
    LineOffer offer;
    std::int32_t drives = -1;
};

/// The use of a line for the trigger that the offer was made for, with the lines of the plan chosen. A master drives
/// the chosen line; another driver that is wired to drive a line goes on doing so.
LineUse lineUse(const LineRole& role, std::int32_t line, LineTrigger trigger, const LinePlan& plan);

} // namespace ko
