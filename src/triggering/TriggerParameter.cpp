#include "triggering/TriggerParameter.h"

#include "page/Drivers.h"
#include "platform/Failure.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ko {

namespace {

constexpr int numberFormat = 3;

bool isTrue(const Value& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    if (const auto* whole = std::get_if<std::int32_t>(&value))
        return *whole != 0;
    if (const auto* number = std::get_if<double>(&value))
        return *number != 0.0;
    const auto* text = std::get_if<std::string>(&value);
    return text && checkState(*text).value_or(false);
}

bool checked(const std::string& text)
{
    const std::optional<bool> state = checkState(text);
    if (!state)
        fail(failure::typeMismatch);
    return *state;
}

} // namespace

CellStyle parameterStyle(const std::string& type)
{
    CellStyle style;
    style.wrapText = false;
    style.enabled = false;
    style.interior = SystemColor::inactiveBorder;
    if (type == "Bool") {
        style.control = CellStyle::Control::check;
        style.alignment = CellStyle::Alignment::center;
    } else if (type == "Enum") {
        style.control = CellStyle::Control::list;
    } else if (type == "Float") {
        style.format = numberFormat;
    }
    if (checkedAs(type))
        style.alignment = CellStyle::Alignment::right;
    style.readOnly = type == "StringReadOnly";
    return style;
}

bool isKnownType(const std::string& type)
{
    constexpr std::array<std::string_view, 6> types{"Bool", "String", "StringReadOnly", "Enum", "Float", "Integer"};
    return std::find(types.begin(), types.end(), type) != types.end();
}

std::string parameterText(const std::string& type, const Value& value, const Locale& locale)
{
    return valueText(type == "Bool" ? Value(isTrue(value)) : value, locale);
}

std::optional<NumberType> checkedAs(const std::string& type)
{
    if (type == "Float")
        return NumberType::Float;
    return type == "Integer" ? std::optional(NumberType::Integer) : std::nullopt;
}

std::optional<NumberCheck> readNumberCheck(TriggerParameters& parameters, std::int32_t slot, std::int32_t channel,
                                           std::int32_t id)
{
    const auto number = checkedAs(parameters.GetTriggerParamType(slot, channel, id));
    if (!number)
        return std::nullopt;
    return NumberCheck{*number,
                       {boundOf(parameters.GetTriggerParamMin(slot, channel, id)),
                        boundOf(parameters.GetTriggerParamMax(slot, channel, id))}};
}

std::optional<double> boundOf(double value)
{
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

std::optional<Value> parameterValue(const std::string& type, const std::string& text, const Locale& locale)
{
    if (type == "Bool")
        return checked(text);
    if (type == "String" || type == "Enum")
        return text;
    if (type == "Float")
        return toDouble(text, locale);
    if (type == "Integer")
        return toLong(text, locale);
    return std::nullopt;
}

} // namespace ko
