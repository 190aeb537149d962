#pragma once

#include "interfaces/Values.h"

#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace ko {

/// A value that a driver call returns or takes, of any type that occurs in an operation. Single-precision numbers are
/// held as double.
using CallValue = std::variant<std::monostate, bool, std::int32_t, double, std::string, DateTime, Range,
                               std::vector<double>, LineList, std::vector<std::string>>;

template <class T> CallValue callValue(const T& value)
{
    if constexpr (std::is_same_v<T, Value>)
        return std::visit([](const auto& held) { return CallValue(held); }, value);
    else if constexpr (std::is_same_v<T, float>)
        return static_cast<double>(value);
    else
        return value;
}

} // namespace ko
