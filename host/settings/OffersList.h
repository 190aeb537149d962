#pragma once

#include "host/settings/HeadlessPage.h"

#include <nlohmann/json_fwd.hpp>

namespace ko {

/// Returns for each quantity that the page shows what all instruments share, followed by one line per instrument: what
/// it offers and how that restricts what all share.
std::string offersText(const HeadlessPage& played);

/// Returns the same as JSON for the quantity of a setting; null for a setting without a quantity.
nlohmann::ordered_json offersOf(const HeadlessPage& played, const std::string& setting);

} // namespace ko
