#pragma once

#include "support/TextNumbers.h"

namespace ko {

/// Numbers of the frame window's texts in the string table.
namespace hostText = textNumber::host;
/// Numbers of the texts that name what has failed at an instrument.
namespace failedText = textNumber::failed;

} // namespace ko
