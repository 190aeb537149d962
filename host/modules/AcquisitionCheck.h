#pragma once

#include "host/modules/DriverAnswers.h"

#include <chrono>
#include <memory>

namespace ko {

/// Arms, starts and stops in each order, and checks what the instrument delivers in short runs in real time. The
/// instrument is then closed while it acquires. An acquisition that has not ended this long after its last sample is a
/// finding.
void checkAcquisition(CheckLog& log, std::unique_ptr<Instrument> instrument, std::chrono::milliseconds patience);

} // namespace ko
