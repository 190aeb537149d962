#pragma once

#include "host/recording/ChartSource.h"

#include <memory>

namespace ko {

/// Returns the signals of a recording's file, which are read on a thread meanwhile: `ChartState` grows until all has
/// been read. At first extents are coarse; finer ones are read from the file when they are asked for, and are there
/// when they are asked for again soon after. A part that cannot be read counts as lost. Fails with an `InputError` if
/// the file is no recording.
std::shared_ptr<const ChartSource> signalsIn(const std::string& file);

} // namespace ko
