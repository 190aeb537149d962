#pragma once

#include "host/settings/Settings.h"

#include <nlohmann/json_fwd.hpp>

namespace ko {

/// Returns the settings of the page that can be set at present.
Settings settableOnes(const HeadlessPage& played);

/// Returns the settings as a table for reading, one per line: present value, unit and possible values.
std::string settingsTable(const Settings& settings, const HeadlessPage& played);

/// Returns the same as a JSON array of objects.
nlohmann::ordered_json settingsJson(const Settings& settings, const HeadlessPage& played);

/// Returns the names, one per line.
std::string settingNames(const Settings& settings);

/// The possible values of a setting.
struct Choices {
    std::string lines; ///< the choices, one per line
    std::string note;  ///< without choices: how to write a value; may be empty
};

/// Fails as `settingNamed` does, and with a `Refusal` for a read-only setting.
Choices settingChoices(const HeadlessPage& played, const std::string& name);

} // namespace ko
