#pragma once

#include "support/Support.h"

namespace ko {

/// Shows why a change is undone: the text with this number, titled "Error". Failures reach the caller.
void showError(const Support& support, int text);

/// Shows the message for a non-zero code of `Actions::updateDiskSpace`. Failures reach the caller.
void showLimitMessage(const Support& support, std::int32_t code);

} // namespace ko
