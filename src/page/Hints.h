#pragma once

#include "page/Page.h"
#include "support/Support.h"

namespace ko {

/// Passed for both bounds when there is no range.
inline constexpr double noRange = -1e300;

/// Shows the hint of the focused field in the host's status site: the range from `min` to `max`, or an empty hint when
/// both are equal. Does nothing in read-only mode, with no drivers, or without a status site. Failures reach the
/// caller.
void setToolTip(const Page& page, const Support& support, double min, double max);

/// Shows a hint in the status site, under the same conditions.
void showHint(const Page& page, const std::string& hint);

/// Selects the whole text from the start.
void selectAllText(TextBox& box);

} // namespace ko
