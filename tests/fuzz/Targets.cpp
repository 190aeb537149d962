#include "fuzz/Targets.h"

#include <array>

namespace ko::fuzz {

void require(bool holds, const std::string& what, std::string_view text)
{
    if (!holds)
        throw Violation(what + ": " + std::string(text));
}

std::span<const Target* const> allTargets()
{
    static constexpr std::array targets{&numbers, &dates, &strings, &setups, &scripts};
    return targets;
}

} // namespace ko::fuzz
