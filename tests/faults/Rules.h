#pragma once

#include "faults/Bench.h"

namespace ko::test {

/// What does not hold of the page although it always must, whatever fails; a sentence each.
Texts brokenAlways(const Page& page);

/// What the page shows otherwise than the drivers hold it; for benches where nothing fails.
Texts shownWrongly(const Bench& bench);

/// Bytes of the recording as the page has to count them, the larger of its two totals.
double totalBytes(const Bench& bench);

} // namespace ko::test
