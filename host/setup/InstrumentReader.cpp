#include "host/setup/InstrumentReader.h"

#include "host/instruments/CallGate.h"
#include "host/instruments/HeldNumbers.h"
#include "host/instruments/ParameterTypes.h"

namespace ko {

namespace {

double number(const JsonNode& node)
{
    return node.number();
}

std::int32_t integer(const JsonNode& node)
{
    return node.integer();
}

bool boolean(const JsonNode& node)
{
    return node.boolean();
}

std::string text(const JsonNode& node)
{
    return node.text();
}

std::optional<double> numberOrNull(const JsonNode& node)
{
    return node.isNull() ? std::nullopt : std::optional(node.number());
}

std::optional<std::int32_t> integerOrNull(const JsonNode& node)
{
    return node.isNull() ? std::nullopt : std::optional(node.integer());
}

Value enabledValue(const JsonNode& node)
{
    const Value value = node.scalar();
    const auto* const flag = std::get_if<bool>(&value);
    return flag ? Value{std::int32_t{*flag}} : value;
}

double boundOf(const ParameterSettings& parameter, const JsonNode& node)
{
    if (!isNumericType(parameter.type))
        node.refuse("belongs to \"Float\" and \"Integer\" only");
    return node.number();
}

std::vector<std::string> choicesOf(const ParameterSettings& parameter, const JsonNode& node)
{
    auto choices = node.list(text);
    if (!choices.empty() && parameter.type != "Enum")
        node.refuse("belong to \"Enum\" only");
    return choices;
}

Value valueOf(const ParameterSettings& parameter, const JsonNode& node)
{
    const auto value = fitted(node.scalar(), parameter.type);
    if (!value)
        node.refuse("must be " + std::string(valueTypeName(parameter.type)));
    return *value;
}

ParameterSettings readParameter(const JsonNode& node)
{
    node.onlyKeys({"id", "name", "type", "min", "max", "choices", "value"});
    ParameterSettings parameter;
    node.need("id", parameter.id, integer);
    node.need("name", parameter.name, text);
    node.need("type", parameter.type, text);
    node.take("min", parameter.minimum, [&](const JsonNode& n) { return boundOf(parameter, n); });
    node.take("max", parameter.maximum, [&](const JsonNode& n) { return boundOf(parameter, n); });
    node.take("choices", parameter.choices, [&](const JsonNode& n) { return choicesOf(parameter, n); });
    node.need("value", parameter.value, [&](const JsonNode& n) { return valueOf(parameter, n); });
    return parameter;
}

ChannelSettings readChannel(const JsonNode& node)
{
    node.onlyKeys({"address", "name", "enabled", "canTrigger", "triggerSource", "triggerParameters"});
    ChannelSettings channel;
    node.need("address", channel.address, text);
    node.take("name", channel.name, text);
    node.take("enabled", channel.enabled, enabledValue);
    node.take("canTrigger", channel.canTrigger, boolean);
    node.take("triggerSource", channel.triggerSource, boolean);
    node.take("triggerParameters", channel.triggerParameters, [](const JsonNode& n) { return n.list(readParameter); });
    return channel;
}

GroupSettings readGroup(const JsonNode& node)
{
    node.onlyKeys({"name", "channels"});
    GroupSettings group;
    node.need("name", group.name, text);
    node.take("channels", group.channels, [](const JsonNode& n) { return n.list(readChannel); });
    return group;
}

Range readRange(const JsonNode& node)
{
    const std::vector<double> bounds = node.list(number);
    if (bounds.size() != 2)
        node.refuse("must be a minimum and a maximum");
    return {bounds[0], bounds[1]};
}

Keeps readKeeps(const JsonNode& node)
{
    const std::string rule = node.text();
    for (const Keeps keeps : {Keeps::Nearest, Keeps::Clamp, Keeps::Any, Keeps::Nothing})
        if (rule == keepsName(keeps))
            return keeps;
    node.refuse(R"(must be "nearest", "clamp", "any" or "nothing")");
}

QuantitySettings readQuantity(const JsonNode& node)
{
    node.onlyKeys({"value", "choices", "range", "keeps"});
    QuantitySettings quantity;
    node.need("value", quantity.value, number);
    node.take("choices", quantity.choices, [](const JsonNode& n) { return n.list(number); });
    node.take("range", quantity.range, readRange);
    node.take("keeps", quantity.keeps, readKeeps);
    return quantity;
}

TimebaseSettings readTimebase(const JsonNode& node)
{
    std::vector<std::string_view> keys{"startTime", "duration", "stopMode", "startMode"};
    for (const HeldNumber& it : heldNumbers)
        keys.push_back(it.number->name);
    node.onlyKeys(keys);
    TimebaseSettings timebase;
    for (const HeldNumber& it : heldNumbers)
        node.take(it.number->name, timebase.*it.held, readQuantity);
    node.take("startTime", timebase.startTime.days, number);
    node.take("duration", timebase.duration, [](const JsonNode& n) { return n.single(); });
    node.take("stopMode", timebase.stopMode, integer);
    node.take("startMode", timebase.startMode, integer);
    return timebase;
}

TriggerLineSettings readTriggerLines(const JsonNode& node)
{
    node.onlyKeys({"startMasterRank", "startTriggerLine", "startTriggerInput", "scanMasterRank", "scanTriggerLine",
                   "scanTriggerInput", "startLinesAsMaster", "startLinesAsListener", "scanLinesAsMaster",
                   "scanLinesAsListener"});
    const auto lines = [](const JsonNode& n) { return n.list(integer); };
    TriggerLineSettings wiring;
    node.take("startMasterRank", wiring.startMasterRank, integer);
    node.take("startTriggerLine", wiring.startTriggerLine, integer);
    node.take("startTriggerInput", wiring.startTriggerInput, integer);
    node.take("scanMasterRank", wiring.scanMasterRank, integer);
    node.take("scanTriggerLine", wiring.scanTriggerLine, integer);
    node.take("scanTriggerInput", wiring.scanTriggerInput, integer);
    node.take("startLinesAsMaster", wiring.startLinesAsMaster, lines);
    node.take("startLinesAsListener", wiring.startLinesAsListener, lines);
    node.take("scanLinesAsMaster", wiring.scanLinesAsMaster, lines);
    node.take("scanLinesAsListener", wiring.scanLinesAsListener, lines);
    return wiring;
}

/// An operation's name alone, or an object with a number and a description of its own.
SimulatedFailure readFailing(const JsonNode& node)
{
    SimulatedFailure failure;
    const auto operation = [](const JsonNode& n) {
        const std::string name = n.text();
        if (!CallGate{}.fail({.operation = name}))
            n.refuse("is no operation that can fail");
        return name;
    };
    if (node.isText()) {
        failure.operation = operation(node);
        return failure;
    }
    node.onlyKeys({"operation", "number", "description"});
    node.need("operation", failure.operation, operation);
    node.take("number", failure.number, integer);
    node.take("description", failure.description, text);
    return failure;
}

} // namespace

InstrumentSettings readInstrument(const JsonNode& node)
{
    node.onlyKeys({"name", "measurementMode", "samplingMode", "groups", "hasTriggerParameters", "timebase",
                   "triggerLines", "dynamicBytes", "numberOfScans", "failing"});
    InstrumentSettings instrument;
    node.need("name", instrument.name, text);
    node.take("measurementMode", instrument.measurementMode, integer);
    node.take("samplingMode", instrument.samplingMode, integer);
    node.take("groups", instrument.groups, [](const JsonNode& n) { return n.list(readGroup); });
    node.take("hasTriggerParameters", instrument.hasTriggerParameters, boolean);
    node.take("timebase", instrument.timebase, readTimebase);
    node.take("triggerLines", instrument.triggerLines, readTriggerLines);
    node.take("dynamicBytes", instrument.dynamicBytes, numberOrNull);
    node.take("numberOfScans", instrument.numberOfScans, integerOrNull);
    node.take("failing", instrument.failing, [](const JsonNode& n) { return n.list(readFailing); });
    return instrument;
}

} // namespace ko
