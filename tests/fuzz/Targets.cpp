#include "fuzz/Targets.h"

#include <algorithm>
#include <array>

namespace ko::fuzz {

void require(bool holds, const std::string& what, std::string_view text)
{
    if (!holds)
        throw Violation(what + ": " + std::string(text));
}

void requireLine(std::string_view refusal, std::string_view file)
{
    const std::string_view line = refusal.starts_with(file) ? refusal.substr(file.size()) : "";
    const std::string_view wrong = line.substr(std::min(line.size(), line.find_first_not_of("0123456789")));
    require(!line.starts_with('0') && wrong.size() < line.size() && wrong.size() > 2 && wrong.starts_with(": ") &&
                wrong.find_first_of("\r\n") == std::string_view::npos,
            "a refusal names file, line and fault, in one line", refusal);
}

std::span<const Target* const> allTargets()
{
    static constexpr std::array targets{&numbers, &dates, &strings, &setups, &scripts};
    return targets;
}

} // namespace ko::fuzz
