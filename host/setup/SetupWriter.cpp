#include "host/setup/SetupWriter.h"

#include "host/setup/SetupMembers.h"
#include "platform/NumberText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <optional>

namespace ko {

namespace {

using Json = nlohmann::ordered_json;

// How each type is written; the structures follow below.

template <class T> Json written(const T& value)
{
    return value;
}

Json written(const Value& value)
{
    return toJson(callValue(value));
}

/// A single is written by its shortest decimal form, 25.6 and not 25.600000381469727.
Json written(float value)
{
    return widen(value);
}

Json written(const Range& range)
{
    return toJson(CallValue(range));
}

Json written(DateTime time)
{
    return clockText(time);
}

Json written(Keeps keeps)
{
    return keepsNames.at(static_cast<std::size_t>(keeps));
}

Json written(Shape shape)
{
    return shapeNames.at(static_cast<std::size_t>(shape));
}

template <Described T> Json written(const T& object);
Json written(const SimulatedFailure& failure);

template <class T> Json written(const std::optional<T>& value)
{
    return written(*value);
}

template <class T> Json written(const std::vector<T>& list)
{
    Json result = Json::array();
    for (const T& element : list)
        result.push_back(written(element));
    return result;
}

template <class T> Json writtenMembers(const T& object)
{
    Json result = Json::object();
    visitMembers(object, [&](std::string_view key, const auto& member, Rule rule = Rule::Defaulted, const auto&...) {
        const bool isSparse = rule == Rule::Sparse || rule == Rule::Nullable;
        if (!isSparse || member != std::decay_t<decltype(member)>{})
            result[std::string(key)] = written(member);
    });
    return result;
}

template <Described T> Json written(const T& object)
{
    return writtenMembers(object);
}

Json written(const SimulatedFailure& failure)
{
    const bool isPlain = failure == SimulatedFailure{.operation = failure.operation};
    return isPlain ? Json(failure.operation) : writtenMembers(failure);
}

constexpr std::size_t lineWidth = 110;

/// A lower bound of the length of the value in one line.
std::size_t leastLength(const Json& json)
{
    if (const auto* text = json.get_ptr<const std::string*>())
        return text->size() + 2;
    std::size_t length = 1;
    if (json.is_structured())
        for (const Json& member : json)
            length += 1 + leastLength(member);
    return length;
}

/// The value in one line; none when it is longer than `width`.
std::optional<std::string> inOneLine(const Json& json, std::size_t width)
{
    if (leastLength(json) > width)
        return std::nullopt;
    std::string line = json.dump();
    return line.size() <= width ? std::optional(std::move(line)) : std::nullopt;
}

} // namespace

std::string laidOut(const Json& json, const JsonLayout& layout)
{
    if (!json.is_structured())
        return json.dump();
    if (auto line = inOneLine(json, lineWidth - std::min(lineWidth, layout.margin.size())))
        return *line;
    const JsonLayout inner{layout.margin + layout.unit, layout.unit, layout.lineBreak};
    std::string result;
    for (const auto& member : json.items()) {
        result += (result.empty() ? "" : ",") + layout.lineBreak + inner.margin;
        if (json.is_object())
            result += Json(member.key()).dump() + ": ";
        result += laidOut(member.value(), inner);
    }
    const std::string end = layout.lineBreak + layout.margin;
    return json.is_object() ? "{" + result + end + "}" : "[" + result + end + "]";
}

std::string setupText(const Setup& setup)
{
    return laidOut(written(setup)) + "\n";
}

Json toJson(const Setup& setup)
{
    return written(setup);
}

Json toJson(const InstrumentSettings& instrument)
{
    return written(instrument);
}

Json toJson(const CallValue& value)
{
    return std::visit(
        [](const auto& held) -> Json {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, std::monostate>)
                return nullptr;
            else if constexpr (std::is_same_v<T, DateTime>)
                return held.days;
            else if constexpr (std::is_same_v<T, Range>)
                return Json::array({held.minimum, held.maximum});
            else
                return held;
        },
        value);
}

std::string jsonText(const CallValue& value)
{
    return toJson(value).dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace ko
