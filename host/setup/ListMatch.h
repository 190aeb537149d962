#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <vector>

namespace ko {

/// For each element of the list `after`, the index of the element of `before` that it was; none for a new one. The
/// indices increase. An object is recognised by its address, id or name; between recognised elements, as many as there
/// were before count as the same ones, renamed.
std::vector<std::optional<std::size_t>> matchLists(const nlohmann::ordered_json& before,
                                                   const nlohmann::ordered_json& after);

} // namespace ko
