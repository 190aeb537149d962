#include "host/setup/JsonNode.h"

#include "host/instruments/ParameterTypes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ko {

std::string JsonNode::path() const
{
    if (!parent_)
        return "$";
    const bool isElement = parent_->value_.is_array();
    return parent_->path() + (isElement ? "[" + std::to_string(index_) + "]" : "." + std::string(key_));
}

void JsonNode::refuse(const std::string& what) const
{
    throw JsonRefusal(path(), path(), what);
}

void JsonNode::refuseMissing(std::string_view key) const
{
    throw JsonRefusal(path() + "." + std::string(key), path(), "is missing");
}

double JsonNode::number() const
{
    if (!value_.is_number())
        refuse("must be a number");
    return value_.get<double>();
}

float JsonNode::single() const
{
    const double wide = number();
    if (std::abs(wide) > static_cast<double>(std::numeric_limits<float>::max()))
        refuse("must be a number of single precision");
    return static_cast<float>(wide);
}

std::int32_t JsonNode::integer() const
{
    const auto whole = value_.is_number() ? wholeNumber(value_.get<double>()) : std::nullopt;
    if (!whole)
        refuse("must be a whole number of 32 bits");
    return *whole;
}

bool JsonNode::boolean() const
{
    if (!value_.is_boolean())
        refuse("must be true or false");
    return value_.get<bool>();
}

std::string JsonNode::text() const
{
    if (!value_.is_string())
        refuse("must be a text");
    return value_.get<std::string>();
}

Value JsonNode::scalar() const
{
    if (value_.is_structured())
        refuse("must be a single value");
    if (value_.is_null())
        return {};
    if (value_.is_boolean())
        return boolean();
    if (value_.is_string())
        return text();
    const double wide = number();
    const auto whole = value_.is_number_integer() ? wholeNumber(wide) : std::nullopt;
    return whole ? Value{*whole} : Value{wide};
}

void JsonNode::onlyKeys(const std::vector<std::string_view>& keys) const
{
    if (!value_.is_object())
        refuse("must be an object");
    for (const auto& [key, value] : value_.items())
        if (std::find(keys.begin(), keys.end(), key) == keys.end())
            JsonNode(value, *this, key, 0).refuse("unknown key");
}

void JsonNode::requireArray() const
{
    if (!value_.is_array())
        refuse("must be a list");
}

} // namespace ko
