#pragma once

#include "host/settings/HeadlessPage.h"

#include <nlohmann/json_fwd.hpp>

namespace ko {

/// Returns for each quantity that the page shows what all instruments share, followed by one line per instrument: what
/// it offers, how that restricts what all share, and what it holds; with a remark where that differs from the page.
std::string offersText(const HeadlessPage& played);

/// Returns the same as JSON for the quantity of a setting; null for a setting without a quantity.
nlohmann::ordered_json offersOf(const HeadlessPage& played, const std::string& setting);

/// Returns the instruments that hold another value of a setting than the page shows, as a JSON array of names and
/// values.
nlohmann::ordered_json differencesOf(const HeadlessPage& played, const std::string& setting);

} // namespace ko
