#pragma once

#include "host/settings/Settings.h"

#include <nlohmann/json_fwd.hpp>

namespace ko {

/// The settings of the page that can be set now.
Settings settableOnes(const HeadlessPage& played);

/// Settings for people: a line each, with the present value, its unit, and what the setting can be set to.
std::string settingsTable(const Settings& settings, const HeadlessPage& played);

/// The same as a JSON array of objects.
nlohmann::ordered_json settingsJson(const Settings& settings, const HeadlessPage& played);

/// The names alone, a line each.
std::string settingNames(const Settings& settings);

/// What a setting can be set to.
struct Choices {
    std::string lines; ///< the choices, a line each
    std::string note;  ///< of a setting without any: how to write its values; empty where there is no more to say
};

/// Fails as `settingNamed` does, and with a `Refusal` for a setting that can only be read.
Choices settingChoices(const HeadlessPage& played, const std::string& name);

} // namespace ko
