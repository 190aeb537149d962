#pragma once

#include "platform/Table.h"
#include "support/Support.h"
#include "triggering/LineUse.h"

#include <span>

namespace ko {

/// The view that one of the two triggers has of the lines.
enum class LineTrigger { start, scan };

/// Shows in `table` what each driver does on each line, a row for a driver and a column for a line, as it would be with
/// these lines chosen. Failures reach the caller.
void showLineMap(Table& table, const Support& support, std::span<const LineDriver> drivers, LineTrigger trigger,
                 const ChosenLines& chosen);

} // namespace ko
