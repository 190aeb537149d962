#pragma once

#include "page/Page.h"
#include "support/Support.h"

namespace ko {

/// Passed for both bounds: no range.
inline constexpr double noRange = -1e300;

/// Gives the host's status site the hint of the focused field: the range from `min` to `max`, or an empty hint when
/// both are equal. Does nothing in read-only mode, with no driver, or without a status site. Failures reach the
/// caller.
void setToolTip(const Page& page, const Support& support, double min, double max);

/// Gives the status site a hint, under the same conditions.
void showHint(const Page& page, const std::string& hint);

/// Puts the cursor at the start and selects the whole text.
void selectAllText(TextBox& box);

} // namespace ko
