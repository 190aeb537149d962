#pragma once

#include "faults/Bench.h"

namespace ko::test {

/// Returns the violated rules of those that must hold whatever fails, one sentence each.
Texts brokenAlways(const Page& page);

/// Returns where the page differs from the drivers; for benches without failures.
Texts shownWrongly(const Bench& bench);

/// Returns the larger of the two totals in bytes that the page has to show.
double totalBytes(const Bench& bench);

} // namespace ko::test
