#pragma once

#include "support/TextNumbers.h"

namespace ko {

/// Numbers of the set-up sheet's texts in the string table.
namespace sheetText = textNumber::sheet;

} // namespace ko
