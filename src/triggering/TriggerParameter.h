#pragma once

#include "interfaces/TriggerParameters.h"
#include "platform/Grid.h"
#include "support/Validation.h"

namespace ko {

/// Display, validation and conversion of trigger parameters, by type name.

/// The style of a cell for a value of this type, read-only at first. An "Enum" cell has no choices yet.
CellStyle parameterStyle(const std::string& type);

/// False for an unknown type, whose values are shown but never written.
bool isKnownType(const std::string& type);

/// The text of a value in a cell of this type; "True" or "False" for "Bool", whatever the value's own type.
std::string parameterText(const std::string& type, const Value& value, const Locale& locale);

/// The number type to validate with; none for types that are not numeric.
std::optional<NumberType> checkedAs(const std::string& type);

/// The check of a numeric parameter.
struct NumberCheck {
    NumberType type = NumberType::Float;
    NumberBounds bounds;
};

/// Reads how a parameter is checked; none for types that are not numeric. Failures reach the caller.
std::optional<NumberCheck> readNumberCheck(TriggerParameters& parameters, std::int32_t slot, std::int32_t channel,
                                           std::int32_t id);

/// A bound as a driver returns it; none for NaN.
std::optional<double> boundOf(double value);

/// Converts an edited text to the value to write. None for a type that is not written. Failure 13 or 6 for a text that
/// is not a value of the type.
std::optional<Value> parameterValue(const std::string& type, const std::string& text, const Locale& locale);

} // namespace ko
