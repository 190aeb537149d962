#pragma once

#include "interfaces/TriggerParameters.h"
#include "platform/Grid.h"
#include "support/Validation.h"

namespace ko {

/// How trigger parameters of the driver's types are shown, checked and written.

/// The cell that shows and edits a value of this type, not to be edited yet. An "Enum" cell has no choices yet.
CellStyle parameterStyle(const std::string& type);

/// False for a type that the component does not know, which is shown but never written.
bool isKnownType(const std::string& type);

/// The text that shows a value in a cell of this type: "True" or "False" for "Bool", whatever value stands for it.
std::string parameterText(const std::string& type, const Value& value, const Locale& locale);

/// The number type that the check takes for the type; none for types that are not numeric.
std::optional<NumberType> checkedAs(const std::string& type);

/// An edited text as the value that is written. None for a type that is not written. Failure 13 or 6 for a text that
/// is no value of its type.
std::optional<Value> parameterValue(const std::string& type, const std::string& text, const Locale& locale);

} // namespace ko
