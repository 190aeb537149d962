#pragma once

#include "support/TextNumbers.h"

namespace ko {

/// The frame window's texts by their numbers in the string table.
namespace hostText = textNumber::host;

} // namespace ko
