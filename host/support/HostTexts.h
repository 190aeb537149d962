#pragma once

#include "support/TextNumbers.h"

namespace ko {

/// Numbers of the frame window's texts in the string table.
namespace hostText = textNumber::host;

} // namespace ko
