#pragma once

#include "host/instruments/CallGate.h"
#include "host/instruments/HeldNumbers.h"
#include "host/instruments/ParameterTypes.h"
#include "host/setup/SetupFile.h"

#include <algorithm>
#include <concepts>

namespace ko {

/// When a member of a set-up file must be there, and when it is written.
enum class Rule {
    Required,  ///< reading refuses an object without it
    Defaulted, ///< keeps its default where it is missing; always written
    Sparse,    ///< the same; not written where it is empty
    Nullable   ///< the same; null is read as missing
};

/// A member that takes every value of its type.
struct Unchecked {
    template <class T> std::string operator()(T& /*member*/) const { return {}; }
};

// The members of set-up files, in the order in which they are written. Each function calls
//     visit(key, member, Rule = Rule::Defaulted, Check = Unchecked())
// for each of them. A check gets the value that has been read when the members before it have been read, too; it may
// bring it into the form that is kept, and returns what is wrong with it, or "".

template <class T, class Struct>
concept Is = std::same_as<std::remove_const_t<T>, Struct>;

template <class Visit> void visitMembers(Is<QuantitySettings> auto& quantity, const Visit& visit)
{
    visit("value", quantity.value, Rule::Required);
    visit("choices", quantity.choices, Rule::Sparse);
    visit("range", quantity.range, Rule::Sparse);
    visit("keeps", quantity.keeps, Rule::Sparse);
}

template <class Visit> void visitMembers(Is<TimebaseSettings> auto& timebase, const Visit& visit)
{
    for (const HeldNumber& it : heldNumbers)
        visit(it.number->name, timebase.*it.held);
    visit("startTime", timebase.startTime.days);
    visit("duration", timebase.duration);
    visit("stopMode", timebase.stopMode);
    visit("startMode", timebase.startMode);
}

template <class Visit> void visitMembers(Is<TriggerLineSettings> auto& wiring, const Visit& visit)
{
    visit("startMasterRank", wiring.startMasterRank);
    visit("startTriggerLine", wiring.startTriggerLine);
    visit("startTriggerInput", wiring.startTriggerInput);
    visit("scanMasterRank", wiring.scanMasterRank);
    visit("scanTriggerLine", wiring.scanTriggerLine);
    visit("scanTriggerInput", wiring.scanTriggerInput);
    visit("startLinesAsMaster", wiring.startLinesAsMaster);
    visit("startLinesAsListener", wiring.startLinesAsListener);
    visit("scanLinesAsMaster", wiring.scanLinesAsMaster);
    visit("scanLinesAsListener", wiring.scanLinesAsListener);
}

/// What is wrong with the role of a trigger parameter.
inline std::string roleFault(const std::string& role)
{
    const auto& roles = parameterRole::all;
    const bool isRole = std::find(roles.begin(), roles.end(), role) != roles.end();
    return isRole ? "" : R"(must be "level", "slope" or "pretrigger")";
}

template <class Visit> void visitMembers(Is<ParameterSettings> auto& parameter, const Visit& visit)
{
    const std::string& type = parameter.type;
    const auto hasBounds = [&](const auto& /*bound*/) {
        return isNumericType(type) ? "" : R"(belongs to "Float" and "Integer" only)";
    };
    const auto hasChoices = [&](const auto& choices) {
        return choices.empty() || type == "Enum" ? "" : R"(belong to "Enum" only)";
    };
    const auto fits = [&](auto& value) -> std::string {
        const auto kept = fitted(value, type);
        if (!kept)
            return "must be " + std::string(valueTypeName(type));
        value = *kept;
        return {};
    };
    visit("id", parameter.id, Rule::Required);
    visit("name", parameter.name, Rule::Required);
    visit("type", parameter.type, Rule::Required);
    visit("min", parameter.minimum, Rule::Sparse, hasBounds);
    visit("max", parameter.maximum, Rule::Sparse, hasBounds);
    visit("choices", parameter.choices, Rule::Sparse, hasChoices);
    visit("value", parameter.value, Rule::Required, fits);
    visit("role", parameter.role, Rule::Sparse, roleFault);
}

template <class Visit> void visitMembers(Is<SignalSettings> auto& signal, const Visit& visit)
{
    const auto isPositive = [](double rms) { return rms >= 0.0 ? "" : "must not be negative"; };
    visit("shape", signal.shape);
    visit("frequency", signal.frequency);
    visit("amplitude", signal.amplitude);
    visit("offset", signal.offset);
    visit("phase", signal.phase);
    visit("noise", signal.noise, Rule::Defaulted, isPositive);
    visit("seed", signal.seed);
}

template <class Visit> void visitMembers(Is<ChannelSettings> auto& channel, const Visit& visit)
{
    const auto flagAsNumber = [](auto& enabled) {
        if (const auto* const flag = std::get_if<bool>(&enabled))
            enabled = std::int32_t{*flag};
        return "";
    };
    const auto isOrdered = [](const Range& range) {
        return range.minimum < range.maximum ? "" : "must be a minimum and a larger maximum";
    };
    visit("address", channel.address, Rule::Required);
    visit("name", channel.name);
    visit("enabled", channel.enabled, Rule::Defaulted, flagAsNumber);
    visit("canTrigger", channel.canTrigger);
    visit("triggerSource", channel.triggerSource);
    visit("triggerParameters", channel.triggerParameters);
    visit("unit", channel.unit, Rule::Sparse);
    visit("signal", channel.signal, Rule::Sparse);
    visit("range", channel.range, Rule::Sparse, isOrdered);
}

template <class Visit> void visitMembers(Is<GroupSettings> auto& group, const Visit& visit)
{
    visit("name", group.name, Rule::Required);
    visit("channels", group.channels);
}

/// What is wrong with the name of an operation that is to fail.
inline std::string operationFault(const std::string& operation)
{
    return CallGate{}.fail({.operation = operation}) ? "" : "is no operation that can fail";
}

/// In a file its operation alone, too, where the rest is as by default.
template <class Visit> void visitMembers(Is<SimulatedFailure> auto& failure, const Visit& visit)
{
    visit("operation", failure.operation, Rule::Required, operationFault);
    visit("number", failure.number);
    visit("description", failure.description);
}

template <class Visit> void visitMembers(Is<InstrumentSettings> auto& instrument, const Visit& visit)
{
    const auto isOfModule = [&](const auto& /*member*/) {
        return instrument.module.empty() ? "belongs to an instrument with a \"module\"" : "";
    };
    visit("name", instrument.name, Rule::Required);
    visit("module", instrument.module, Rule::Sparse);
    visit("device", instrument.device, instrument.module.empty() ? Rule::Sparse : Rule::Required, isOfModule);
    visit("options", instrument.options, Rule::Sparse, isOfModule);
    visit("measurementMode", instrument.measurementMode);
    visit("samplingMode", instrument.samplingMode);
    visit("groups", instrument.groups);
    visit("hasTriggerParameters", instrument.hasTriggerParameters);
    visit("timebase", instrument.timebase, Rule::Sparse);
    visit("triggerLines", instrument.triggerLines, Rule::Sparse);
    visit("dynamicBytes", instrument.dynamicBytes, Rule::Nullable);
    visit("numberOfScans", instrument.numberOfScans, Rule::Nullable);
    visit("failing", instrument.failing, Rule::Sparse);
}

template <class Visit> void visitMembers(Is<Setup> auto& setup, const Visit& visit)
{
    visit("title", setup.title);
    visit("clock", setup.clock, Rule::Sparse);
    visit("drivers", setup.instruments, Rule::Required);
}

struct NoVisit {
    template <class... Arguments> void operator()(const Arguments&... /*arguments*/) const {}
};

/// A structure of a set-up file.
template <class T>
concept Described = requires(T& object)
{
    visitMembers(object, NoVisit());
};

} // namespace ko
