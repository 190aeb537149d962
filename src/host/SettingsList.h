#pragma once

#include "host/Settings.h"

namespace ko {

/// The settings of the page that can be set now.
Settings settableOnes(const PlayedPage& played);

/// Settings for people: a line each, with the present value, its unit, and what the setting can be set to.
std::string settingsTable(const Settings& settings, const PlayedPage& played);

/// The same as a JSON array of objects.
Json settingsJson(const Settings& settings, const PlayedPage& played);

/// The names alone, a line each.
std::string settingNames(const Settings& settings);

/// What a setting can be set to.
struct Choices {
    std::string lines; ///< the choices, a line each
    std::string note;  ///< of a setting without any: how to write its values; empty where there is no more to say
};

/// Fails as `settingNamed` does, and with a `Refusal` for a setting that can only be read.
Choices settingChoices(const PlayedPage& played, const std::string& name);

} // namespace ko
