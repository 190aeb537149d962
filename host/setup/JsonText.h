#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace ko {

/// Parses JSON with // and /* */ comments. Fails with an `InputError` that names `file` and the line: for wrong
/// syntax, a name that stands twice in an object, and values nested more than 64 deep.
nlohmann::json parseJson(const std::string& text, const std::string& file);

/// The line in which the value of this path ("$.drivers[0].name") begins, for a text that `parseJson` has taken; 1
/// when there is no such value.
int lineOfPath(const std::string& text, const std::string& path);

} // namespace ko
