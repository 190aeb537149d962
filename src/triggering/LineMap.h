#pragma once

#include "platform/Table.h"
#include "support/Support.h"
#include "triggering/LineUse.h"

#include <span>

namespace ko {

/// A driver in front of the lines.
struct LineDriver {
    std::string name; ///< "" where it could not be read
    PerTrigger<LineRole> roles;
};

/// Shows in `table` what each driver does on each line for one trigger, a row for a driver and a column for a line, as
/// it would be with the lines of the plan chosen. Failures reach the caller.
void showLineMap(Table& table, const Support& support, std::span<const LineDriver> drivers, LineTrigger trigger,
                 const LinePlan& plan);

} // namespace ko
