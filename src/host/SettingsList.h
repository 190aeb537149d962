#pragma once

#include "host/Settings.h"

namespace ko {

/// The settings for people: a line each, with the present value, its unit, and what the setting can be set to.
std::string settingsTable(const PlayedPage& played);

/// The same as a JSON array of objects.
Json settingsJson(const PlayedPage& played);

/// The names alone, a line each.
std::string settingNames(const PlayedPage& played);

/// The choices of a setting, a line each; nothing for one that has none.
std::string settingChoices(const PlayedPage& played, const std::string& name);

} // namespace ko
