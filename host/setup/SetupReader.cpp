#include "host/setup/SetupReader.h"

#include "host/setup/SetupMembers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ko {

namespace {

[[noreturn]] void refuse(const JsonValue& json, const std::string& what)
{
    throw JsonRefusal(json, ": " + what);
}

/// Returns the value as a scalar, a list or an object.
template <class T> const T& contentOf(const JsonValue& json, const char* wanted)
{
    const auto* const content = std::get_if<T>(&json.content);
    if (!content)
        refuse(json, std::string("must be ") + wanted);
    return *content;
}

/// Returns the value converted to a parameter of this type.
template <class T> T scalarOf(const JsonValue& json, std::string_view type)
{
    const auto* const scalar = std::get_if<Value>(&json.content);
    const auto value = scalar ? fitted(*scalar, type) : std::nullopt;
    if (!value)
        refuse(json, "must be " + std::string(valueTypeName(type)));
    return std::get<T>(*value);
}

void read(const JsonValue& json, Value& value)
{
    value = contentOf<Value>(json, "a single value");
}

void read(const JsonValue& json, bool& flag)
{
    flag = scalarOf<bool>(json, "Bool");
}

void read(const JsonValue& json, std::string& text)
{
    text = scalarOf<std::string>(json, "String");
}

void read(const JsonValue& json, std::int32_t& number)
{
    number = scalarOf<std::int32_t>(json, "Integer");
}

void read(const JsonValue& json, double& number)
{
    number = scalarOf<double>(json, "Float");
}

void read(const JsonValue& json, float& number)
{
    const auto wide = scalarOf<double>(json, "Float");
    if (std::abs(wide) > static_cast<double>(std::numeric_limits<float>::max()))
        refuse(json, "must be a number of single precision");
    number = static_cast<float>(wide);
}

void read(const JsonValue& json, DateTime& time)
{
    const auto clock = readClockTime(scalarOf<std::string>(json, "String"));
    if (!clock)
        refuse(json, "must be a date and time such as 2026-11-21 09:30:00");
    time = *clock;
}

/// Reads one of the names of an enumeration, which are in its order.
template <class Named> Named namedOf(const JsonValue& json, const auto& names)
{
    const auto found = std::find(names.begin(), names.end(), scalarOf<std::string>(json, "String"));
    if (found != names.end())
        return static_cast<Named>(found - names.begin());
    std::string wanted = "must be \"" + std::string(names.front());
    for (auto name = names.begin() + 1; name != names.end(); ++name)
        wanted += (name + 1 == names.end() ? "\" or \"" : "\", \"") + std::string(*name);
    refuse(json, wanted + "\"");
}

void read(const JsonValue& json, Keeps& keeps)
{
    keeps = namedOf<Keeps>(json, keepsNames);
}

void read(const JsonValue& json, Shape& shape)
{
    shape = namedOf<Shape>(json, shapeNames);
}

/// Texts by name.
void read(const JsonValue& json, DeviceOptions& options)
{
    for (const JsonMember& member : contentOf<JsonObject>(json, "an object"))
        read(member, options[member.key]);
}

template <Described T> void read(const JsonValue& json, T& object);
void read(const JsonValue& json, SimulatedFailure& failure);

template <class T> void read(const JsonValue& json, std::optional<T>& value)
{
    read(json, value.emplace());
}

template <class T> void read(const JsonValue& json, std::vector<T>& list)
{
    for (const JsonValue& element : contentOf<JsonList>(json, "a list"))
        read(element, list.emplace_back());
}

void read(const JsonValue& json, Range& range)
{
    std::vector<double> bounds;
    read(json, bounds);
    if (bounds.size() != 2)
        refuse(json, "must be a minimum and a maximum");
    range = {bounds[0], bounds[1]};
}

template <class T, class Check> void readChecked(const JsonValue& json, T& value, const Check& check)
{
    read(json, value);
    if (const std::string fault = check(value); !fault.empty())
        refuse(json, fault);
}

template <class T> void refuseUnknownKeys(const JsonValue& json, const T& object)
{
    std::vector<std::string_view> known;
    visitMembers(object, [&](std::string_view key, const auto&...) { known.push_back(key); });
    for (const JsonMember& member : contentOf<JsonObject>(json, "an object"))
        if (std::find(known.begin(), known.end(), member.key) == known.end())
            refuse(member, "unknown key");
}

struct MemberReader {
    const JsonValue& object;

    template <class T, class Check = Unchecked>
    void operator()(std::string_view key, T& member, Rule rule = Rule::Defaulted, const Check& check = {}) const
    {
        const JsonValue* const value = object.find(key);
        if (!value && rule == Rule::Required)
            throw JsonRefusal(object, "." + std::string(key) + ": is missing");
        if (value && !(value->isNull() && rule == Rule::Nullable))
            readChecked(*value, member, check);
    }
};

template <class T> void readMembers(const JsonValue& json, T& object)
{
    refuseUnknownKeys(json, object);
    visitMembers(object, MemberReader{json});
}

template <Described T> void read(const JsonValue& json, T& object)
{
    readMembers(json, object);
}

void read(const JsonValue& json, SimulatedFailure& failure)
{
    if (json.isText())
        readChecked(json, failure.operation, operationFault);
    else
        readMembers(json, failure);
}

} // namespace

Setup readSetup(const JsonValue& json)
{
    Setup setup;
    read(json, setup);
    return setup;
}

InstrumentSettings readInstrument(const JsonValue& json)
{
    InstrumentSettings instrument;
    read(json, instrument);
    return instrument;
}

} // namespace ko
