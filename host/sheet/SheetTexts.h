#pragma once

#include "support/TextNumbers.h"

namespace ko {

/// The set-up sheet's texts by their numbers in the string table.
namespace sheetText = textNumber::sheet;

} // namespace ko
