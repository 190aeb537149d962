#include "host/instruments/ParameterTypes.h"

#include <cmath>
#include <limits>

namespace ko {

namespace {

template <class T> std::optional<Value> onlyIf(const Value& value)
{
    return std::holds_alternative<T>(value) ? std::optional(value) : std::nullopt;
}

} // namespace

bool isNumericType(std::string_view type)
{
    return type == "Float" || type == "Integer";
}

std::string_view valueTypeName(std::string_view type)
{
    if (type == "Bool")
        return "true or false";
    if (type == "String" || type == "StringReadOnly" || type == "Enum")
        return "a text";
    if (type == "Float")
        return "a number";
    return type == "Integer" ? "a whole number of 32 bits" : "";
}

std::optional<Value> fitted(const Value& value, std::string_view type)
{
    if (valueTypeName(type).empty())
        return value;
    if (type == "Bool")
        return onlyIf<bool>(value);
    if (!isNumericType(type))
        return onlyIf<std::string>(value);
    const std::optional<double> number = numberOf(value);
    if (!number || !std::isfinite(*number))
        return std::nullopt;
    if (type == "Float")
        return number;
    return wholeNumber(*number);
}

std::optional<double> numberOf(const Value& value)
{
    if (const auto* whole = std::get_if<std::int32_t>(&value))
        return *whole;
    const auto* number = std::get_if<double>(&value);
    return number ? std::optional(*number) : std::nullopt;
}

std::optional<std::int32_t> wholeNumber(double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (!(value >= Limits::min() && value <= Limits::max()) || std::trunc(value) != value)
        return std::nullopt;
    return static_cast<std::int32_t>(value);
}

} // namespace ko
