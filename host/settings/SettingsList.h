#pragma once

#include "host/settings/Settings.h"

namespace ko {

/// The settings of the page that can be set now.
Settings settableOnes(const PlayedPage& played);

/// Settings for people: a line each, with the present value, its unit, and what the setting can be set to.
std::string settingsTable(const Settings& settings, const PlayedPage& played);

/// The same as a JSON array of objects.
Json settingsJson(const Settings& settings, const PlayedPage& played);

/// The names alone, a line each.
std::string settingNames(const Settings& settings);

/// The choices of a setting, a line each; nothing for one that has none.
std::string settingChoices(const PlayedPage& played, const std::string& name);

} // namespace ko
