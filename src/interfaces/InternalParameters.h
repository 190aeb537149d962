#pragma once

#include <cstdint>

namespace ko {

/// Whether trigger parameters of this id belong to the driver alone: the page does not show them.
constexpr bool isInternalParameter(std::int32_t id)
{
    return id == 1 || id == 3;
}

} // namespace ko
