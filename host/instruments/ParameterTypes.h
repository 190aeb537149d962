#pragma once

#include "interfaces/Values.h"

#include <optional>
#include <string_view>

namespace ko {

/// True for the types that have bounds, "Float" and "Integer".
bool isNumericType(std::string_view type);

/// What a parameter of this type holds, in words; empty for a type that the page does not know, which holds anything.
std::string_view valueTypeName(std::string_view type);

/// The value as a parameter of this type holds it: an "Integer" takes whole numbers of 32 bits, a "Float" any number.
/// None when the parameter cannot hold it.
std::optional<Value> fitted(const Value& value, std::string_view type);

/// The number that a value is; none for a value of another kind.
std::optional<double> numberOf(const Value& value);

/// The number as a 32-bit integer; none when it is not whole or does not fit.
std::optional<std::int32_t> wholeNumber(double value);

} // namespace ko
