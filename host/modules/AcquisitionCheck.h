#pragma once

#include "host/modules/DriverAnswers.h"

#include <memory>

namespace ko {

/// Arms, starts and stops in each order, and checks what the instrument delivers in short runs in real time. The
/// instrument is then closed while it acquires.
void checkAcquisition(CheckLog& log, std::unique_ptr<Instrument> instrument, const ModuleCheckOptions& options);

} // namespace ko
