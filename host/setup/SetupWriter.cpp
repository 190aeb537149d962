#include "host/setup/SetupWriter.h"

#include "host/instruments/HeldNumbers.h"
#include "host/setup/SetupFile.h"
#include "platform/DateTimes.h"

#include <cstdio>

namespace ko {

namespace {

using Json = nlohmann::ordered_json;

template <class T> void putIf(Json& object, const char* key, const std::optional<T>& value)
{
    if (value)
        object[key] = toJson(*value);
}

Json parameterJson(const ParameterSettings& parameter)
{
    Json result{{"id", parameter.id}, {"name", parameter.name}, {"type", parameter.type}};
    putIf(result, "min", parameter.minimum);
    putIf(result, "max", parameter.maximum);
    if (!parameter.choices.empty())
        result["choices"] = parameter.choices;
    result["value"] = toJson(parameter.value);
    return result;
}

Json channelJson(const ChannelSettings& channel)
{
    Json parameters = Json::array();
    for (const ParameterSettings& parameter : channel.triggerParameters)
        parameters.push_back(parameterJson(parameter));
    return {{"address", channel.address},
            {"name", channel.name},
            {"enabled", toJson(channel.enabled)},
            {"canTrigger", channel.canTrigger},
            {"triggerSource", channel.triggerSource},
            {"triggerParameters", std::move(parameters)}};
}

Json groupJson(const GroupSettings& group)
{
    Json channels = Json::array();
    for (const ChannelSettings& channel : group.channels)
        channels.push_back(channelJson(channel));
    return {{"name", group.name}, {"channels", std::move(channels)}};
}

Json quantityJson(const QuantitySettings& quantity)
{
    Json result{{"value", quantity.value}};
    if (!quantity.choices.empty())
        result["choices"] = quantity.choices;
    if (quantity.range != Range{})
        result["range"] = toJson(quantity.range);
    if (quantity.keeps)
        result["keeps"] = keepsName(*quantity.keeps);
    return result;
}

Json timebaseJson(const TimebaseSettings& timebase)
{
    Json result;
    for (const HeldNumber& it : heldNumbers)
        result[std::string(it.number->name)] = quantityJson(timebase.*it.held);
    result["startTime"] = toJson(timebase.startTime);
    result["duration"] = timebase.duration;
    result["stopMode"] = timebase.stopMode;
    result["startMode"] = timebase.startMode;
    return result;
}

Json wiringJson(const TriggerLineSettings& lines)
{
    return {{"startMasterRank", lines.startMasterRank},       {"startTriggerLine", lines.startTriggerLine},
            {"startTriggerInput", lines.startTriggerInput},   {"scanMasterRank", lines.scanMasterRank},
            {"scanTriggerLine", lines.scanTriggerLine},       {"scanTriggerInput", lines.scanTriggerInput},
            {"startLinesAsMaster", lines.startLinesAsMaster}, {"startLinesAsListener", lines.startLinesAsListener},
            {"scanLinesAsMaster", lines.scanLinesAsMaster},   {"scanLinesAsListener", lines.scanLinesAsListener}};
}

Json failingJson(const SimulatedFailure& failure)
{
    if (failure == SimulatedFailure{.operation = failure.operation})
        return failure.operation;
    return {{"operation", failure.operation}, {"number", failure.number}, {"description", failure.description}};
}

/// The form that `readClockTime` reads.
std::string clockText(DateTime time)
{
    const DateParts parts = dateParts(time);
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month, parts.day, parts.hour,
                  parts.minute, parts.second);
    return text;
}

constexpr std::size_t lineWidth = 110;

/// What fits into the rest of its line stands in it; anything longer has a line for each member.
std::string layOut(const Json& json, std::size_t indent)
{
    std::string whole = json.dump();
    if (!json.is_structured() || indent + whole.size() <= lineWidth)
        return whole;
    const std::string margin(indent + 2, ' ');
    std::string result;
    for (const auto& member : json.items()) {
        result += (result.empty() ? "\n" : ",\n") + margin;
        if (json.is_object())
            result += Json(member.key()).dump() + ": ";
        result += layOut(member.value(), indent + 2);
    }
    const std::string end = "\n" + std::string(indent, ' ');
    return json.is_object() ? "{" + result + end + "}" : "[" + result + end + "]";
}

} // namespace

std::string setupText(const Setup& setup)
{
    Json json{{"title", setup.title}};
    if (setup.clock)
        json["clock"] = clockText(*setup.clock);
    json["drivers"] = Json::array();
    for (const InstrumentSettings& instrument : setup.instruments)
        json["drivers"].push_back(toJson(instrument));
    return layOut(json, 0) + "\n";
}

Json toJson(const CallValue& value)
{
    return std::visit(
        [](const auto& held) -> Json {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>)
                return nullptr;
            else
                return toJson(held);
        },
        value);
}

Json toJson(const Value& value)
{
    return toJson(callValue(value));
}

Json toJson(const Range& range)
{
    return Json::array({range.minimum, range.maximum});
}

Json toJson(const DateTime& time)
{
    return time.days;
}

Json toJson(const InstrumentSettings& instrument)
{
    Json result{{"name", instrument.name},
                {"measurementMode", instrument.measurementMode},
                {"samplingMode", instrument.samplingMode},
                {"groups", Json::array()},
                {"hasTriggerParameters", instrument.hasTriggerParameters}};
    for (const GroupSettings& group : instrument.groups)
        result["groups"].push_back(groupJson(group));
    if (instrument.timebase)
        result["timebase"] = timebaseJson(*instrument.timebase);
    if (instrument.triggerLines)
        result["triggerLines"] = wiringJson(*instrument.triggerLines);
    putIf(result, "dynamicBytes", instrument.dynamicBytes);
    putIf(result, "numberOfScans", instrument.numberOfScans);
    for (const SimulatedFailure& failure : instrument.failing)
        result["failing"].push_back(failingJson(failure));
    return result;
}

} // namespace ko
