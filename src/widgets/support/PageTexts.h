#pragma once

#include "support/TextNumbers.h"

namespace ko {

/// The page's texts by their numbers in the string table.
namespace pageText = textNumber::page;

} // namespace ko
