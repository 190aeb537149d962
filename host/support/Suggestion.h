#pragma once

#include <string>
#include <vector>

namespace ko {

std::string joined(const std::vector<std::string>& texts, const std::string& separator);

/// Suggests the names similar to one that does not exist: "did you mean span?". If none is similar, lists all names,
/// "there are span, start", or suggests the nearest of many.
std::string suggestion(const std::vector<std::string>& names, const std::string& name);

} // namespace ko
