#pragma once

#include "platform/Table.h"
#include "support/Support.h"
#include "triggering/LineUse.h"

#include <span>

namespace ko {

/// A driver and its roles on the trigger lines.
struct LineDriver {
    std::string name; ///< "" when it could not be read
    PerTrigger<LineRole> roles;
};

/// Shows in `table` what each driver would do on each line for one trigger if the lines of the plan were applied: a row
/// per driver and a column per line. Failures reach the caller.
void showLineMap(Table& table, const Support& support, std::span<const LineDriver> drivers, LineTrigger trigger,
                 const LinePlan& plan);

} // namespace ko
