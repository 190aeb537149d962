#pragma once

#include "support/Support.h"

namespace ko {

/// Tells the user why a change is taken back: the text of this number, titled "Error". Failures reach the caller.
void showError(const Support& support, int text);

/// The message for a code of `Actions::updateDiskSpace` that is not 0. Failures reach the caller.
void showLimitMessage(const Support& support, std::int32_t code);

} // namespace ko
