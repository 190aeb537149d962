#pragma once

#include "page/LinePlan.h"

#include <optional>
#include <string>
#include <vector>

namespace ko {

/// The lines that a driver can use for one trigger, as surveyed.
struct UsableLines {
    bool isMaster = false;         ///< the driver drives the trigger line; the others listen
    std::optional<LineMask> lines; ///< lines that it can use in its role; none when unknown
};

/// One element per driver of a list.
using UsableLinesByDriver = std::vector<UsableLines>;

/// The lines that no driver excludes; a driver with unknown lines excludes none.
LineMask commonLines(const UsableLinesByDriver& usable);

/// What a driver does, or could do, on a line for one of the two triggers.
enum class LineUse {
    unknown,   ///< whether it could use the line is unknown
    unusable,  ///< it cannot use the line in its role
    canListen, ///< it could listen there
    canDrive,  ///< it could drive the line
    taken,     ///< the line carries the other trigger
    listens,
    drives,
    mustListen, ///< it listens there although it does not offer the line
    mustDrive   ///< it drives the line although it does not offer it
};

/// A driver's role on the lines of one trigger: the lines that it can use, and the line that it drives now (-1: none).
struct LineRole {
    UsableLines usable;
    std::int32_t drives = -1;
};

/// The use of a line for `trigger`, to which the role belongs, if the lines of the plan are applied. A master drives
/// the chosen line; any other driver continues to drive the line that it already drives.
LineUse lineUse(const LineRole& role, std::int32_t line, LineTrigger trigger, const LinePlan& plan);

} // namespace ko
