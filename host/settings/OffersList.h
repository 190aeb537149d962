#pragma once

#include "host/settings/HeadlessPage.h"

#include <nlohmann/json_fwd.hpp>

namespace ko {

/// For each quantity that the page shows: what all instruments share, and, a line each, what every instrument offers
/// and what that does to what all share.
std::string offersText(const HeadlessPage& played);

/// The same of the quantity that a setting stands for; null for a setting that stands for none.
nlohmann::ordered_json offersOf(const HeadlessPage& played, const std::string& setting);

} // namespace ko
