#pragma once

#include "interfaces/Values.h"

#include <optional>
#include <string_view>

namespace ko {

/// Returns true for the types with bounds, "Float" and "Integer".
bool isNumericType(std::string_view type);

/// Describes in words what a parameter of this type holds. Empty for a type that the page does not know, which takes
/// any value.
std::string_view valueTypeName(std::string_view type);

/// Converts the value to the parameter's type: "Integer" takes 32-bit whole numbers, "Float" any finite number. Returns
/// none if the parameter cannot hold it.
std::optional<Value> fitted(const Value& value, std::string_view type);

/// Returns the value as a number; none for a value of another kind.
std::optional<double> numberOf(const Value& value);

/// Converts to a 32-bit integer; returns none if the number is not whole or does not fit.
std::optional<std::int32_t> wholeNumber(double value);

} // namespace ko
