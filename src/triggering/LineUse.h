#pragma once

#include "page/Page.h"

#include <optional>
#include <string>
#include <vector>

namespace ko {

/// The trigger lines are numbered from 0 to one less.
inline constexpr std::int32_t lineCount = 8;
/// The string table's name of line 0; those of the others follow.
inline constexpr int lineText = 3010;

/// What a driver told of its lines when those of one trigger were worked out.
struct LineOffer {
    bool isMaster = false;         ///< it drives the trigger; the others listen
    std::optional<LineMask> lines; ///< those that it can use for its part; none where it has not told them
};

/// An offer for each driver of a list.
using LineOffers = std::vector<LineOffer>;

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

/// A driver in front of the lines: what it offers for each trigger, and the lines that it drives now (-1: none).
struct LineDriver {
    std::string name; ///< "" where it has not told it
    LineOffer start, scan;
    std::int32_t drivesStart = -1, drivesScan = -1;
};

/// The two triggers' lines as they are chosen, seen by one of them; -1 for none.
struct ChosenLines {
    std::int32_t own = -1;
    std::int32_t other = -1;
};

/// The use of a line for the trigger that the offer was made for. A master drives the chosen line; another driver
/// that is wired to drive a line (`drivenLine`, -1: none) goes on doing so.
LineUse lineUse(const LineOffer& offer, std::int32_t drivenLine, std::int32_t line, const ChosenLines& chosen);

} // namespace ko
