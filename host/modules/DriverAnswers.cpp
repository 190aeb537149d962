#include "host/modules/DriverAnswers.h"

#include "host/instruments/HeldNumbers.h"
#include "host/instruments/KeptInstrument.h"
#include "host/instruments/ParameterTypes.h"

#include <cctype>

namespace ko {

namespace {

void compareChannel(const OpenedInstrument& opened, const ChannelSettings& held, std::int32_t group,
                    std::int32_t channel)
{
    const auto attribute = [&](std::int32_t number) {
        return [&driver = opened.driver, group, channel, number] {
            return driver.ChannelAttribute(group, channel, number);
        };
    };
    const auto call = [&](std::int32_t number) { return calledWith("ChannelAttribute", {group, channel, number}); };
    opened.log.agrees(call(attribute::address), Value(held.address), attribute(attribute::address));
    opened.log.agrees(call(attribute::name), Value(held.name), attribute(attribute::name));
    const auto enabled = opened.log.must(call(attribute::enabled), attribute(attribute::enabled));
    if (enabled && (*enabled != Value(std::int32_t{0})) != held.isEnabled())
        opened.log.blame(call(attribute::enabled), "answers otherwise than held() has it");
}

void compareOffers(const OpenedInstrument& opened, const HeldNumber& it, const QuantitySettings& held)
{
    Timebase& timebase = *opened.timebase;
    const TimebaseNumber& number = *it.number;
    const std::string lists[]{"SampleChoiceList", "BlockSizeChoiceList", "ScanChoiceList"};
    const auto place = static_cast<std::size_t>(&it - heldNumbers.data());
    opened.log.agrees(lists[place], held.choices, [&] { return (timebase.*number.choices)(); });
    const std::string ranged =
        number.range == &Timebase::BlockSizeRange ? "BlockSizeRange" : "ChoiceRange after " + lists[place];
    opened.log.agrees(ranged, held.range, [&] { return (timebase.*number.range)(); });
    if (!(held.range.minimum <= held.range.maximum))
        opened.log.blame(ranged, "has its minimum above its maximum");
}

void compareParameter(const OpenedInstrument& opened, const ParameterSettings& held, std::int32_t group,
                      std::int32_t channel)
{
    CheckLog& log = opened.log;
    TriggerParameters& parameters = *opened.parameters;
    const std::int32_t id = held.id;
    const auto call = [&](std::string_view operation) { return calledWith(operation, {group, channel, id}); };
    const auto ask = [&](auto operation) {
        return [&parameters, operation, group, channel, id] { return (parameters.*operation)(group, channel, id); };
    };
    log.agrees(call("GetTriggerParamName"), held.name, ask(&TriggerParameters::GetTriggerParamName));
    log.agrees(call("GetTriggerParamType"), held.type, ask(&TriggerParameters::GetTriggerParamType));
    log.agrees(call("GetTriggerParamValue"), held.value, ask(&TriggerParameters::GetTriggerParamValue));
    if (held.type == "Enum")
        log.agrees(call("GetTriggerParamChoices"), held.choices, ask(&TriggerParameters::GetTriggerParamChoices));
    if (!isNumericType(held.type))
        return;
    const auto minimum = log.must(call("GetTriggerParamMin"), ask(&TriggerParameters::GetTriggerParamMin));
    const auto maximum = log.must(call("GetTriggerParamMax"), ask(&TriggerParameters::GetTriggerParamMax));
    if (minimum && maximum && !(*minimum <= *maximum))
        log.blame(call("GetTriggerParamMin"), "is above the maximum");
    if (minimum && held.minimum && *minimum != *held.minimum)
        log.blame(call("GetTriggerParamMin"), "answers otherwise than held() has it");
    if (maximum && held.maximum && *maximum != *held.maximum)
        log.blame(call("GetTriggerParamMax"), "answers otherwise than held() has it");
}

void compareTriggering(const OpenedInstrument& opened, const ChannelSettings& held, std::int32_t group,
                       std::int32_t channel)
{
    CheckLog& log = opened.log;
    TriggerParameters& parameters = *opened.parameters;
    const auto call = [&](std::string_view operation) { return calledWith(operation, {group, channel}); };
    log.agrees(call("CanTrigger"), held.canTrigger, [&] { return parameters.CanTrigger(group, channel); });
    log.agrees(call("TriggerEnabled"), held.triggerSource, [&] { return parameters.TriggerEnabled(group, channel); });
    log.agrees(call("GetTriggerParamCount"), static_cast<std::int32_t>(held.triggerParameters.size()),
               [&] { return parameters.GetTriggerParamCount(group, channel); });
    std::int32_t index = 0;
    for (const ParameterSettings& it : held.triggerParameters) {
        log.agrees(calledWith("GetTriggerParamId", {group, channel, index}), it.id,
                   [&] { return parameters.GetTriggerParamId(group, channel, index); });
        compareParameter(opened, it, group, channel);
        ++index;
    }
}

/// Returns the view that the query returns; it must be there as the instrument holds it.
template <class View>
View* checkedView(CheckLog& log, const std::string& call, Driver& driver, View* (Driver::*query)(), bool isHeld)
{
    View* const view = log.must(call, [&] { return (driver.*query)(); }).value_or(nullptr);
    if ((view != nullptr) != isHeld)
        log.blame(call, isHeld ? "returns null, and held() has this view" : "returns a view that held() does not have");
    if (log.must(call, [&] { return (driver.*query)(); }) != view)
        log.blame(call, "returns another object the second time");
    return isHeld ? view : nullptr;
}

} // namespace

std::string calledWith(std::string_view operation, std::initializer_list<std::int32_t> arguments)
{
    std::string text(operation);
    const char* before = "(";
    for (const std::int32_t argument : arguments) {
        text += before + std::to_string(argument);
        before = ", ";
    }
    return text + ")";
}

std::string numberCall(std::string_view prefix, std::string_view name)
{
    std::string call(name);
    call[0] = static_cast<char>(std::toupper(call[0]));
    return std::string(prefix) + call;
}

InstrumentSettings OpenedInstrument::held() const
{
    return log.must("held", [&] { return instrument.held(); }).value_or(InstrumentSettings{});
}

std::optional<OpenedInstrument> openedInstrument(CheckLog& log, Instrument& instrument)
{
    const auto driver = log.must("driver", [&] { return &instrument.driver(); });
    const auto held = log.must("held", [&] { return instrument.held(); });
    if (!driver || !held)
        return std::nullopt;
    if (log.must("driver", [&] { return &instrument.driver(); }) != driver)
        log.blame("driver", "returns another object the second time");
    return OpenedInstrument{
        log,
        instrument,
        **driver,
        checkedView(log, "queryTimebase", **driver, &Driver::queryTimebase, held->timebase.has_value()),
        checkedView(log, "queryTriggerParameters", **driver, &Driver::queryTriggerParameters,
                    held->hasTriggerParameters),
        checkedView(log, "queryTriggerLines", **driver, &Driver::queryTriggerLines, held->triggerLines.has_value())};
}

void compareGroups(const OpenedInstrument& opened, const InstrumentSettings& held)
{
    CheckLog& log = opened.log;
    Driver& driver = opened.driver;
    log.agrees("DriverName(0)", held.name, [&] { return driver.DriverName(0); });
    log.agrees("MeasurementMode", held.measurementMode, [&] { return driver.MeasurementMode(); });
    log.agrees("SamplingMode", held.samplingMode, [&] { return driver.SamplingMode(); });
    log.agrees("GroupCount", static_cast<std::int32_t>(held.groups.size()), [&] { return driver.GroupCount(); });
    for (std::int32_t group = 0; group < std::ssize(held.groups); ++group) {
        const GroupSettings& its = held.groups[static_cast<std::size_t>(group)];
        log.agrees(calledWith("GroupName", {group}), its.name, [&] { return driver.GroupName(group); });
        log.agrees(calledWith("ChannelCount", {group}), static_cast<std::int32_t>(its.channels.size()),
                   [&] { return driver.ChannelCount(group); });
    }
    forEachChannel(held, [&](const ChannelSettings& it, std::int32_t group, std::int32_t channel) {
        compareChannel(opened, it, group, channel);
    });
}

void compareTimebase(const OpenedInstrument& opened, const InstrumentSettings& held)
{
    if (!opened.timebase || !held.timebase)
        return;
    CheckLog& log = opened.log;
    Timebase& timebase = *opened.timebase;
    const TimebaseSettings& its = *held.timebase;
    for (const HeldNumber& it : heldNumbers) {
        const QuantitySettings& quantity = its.*it.held;
        log.agreesFinite(numberCall("", it.number->name), quantity.value, [&] { return (timebase.*it.number->get)(); });
        compareOffers(opened, it, quantity);
    }
    log.agreesFinite("Duration", its.duration, [&] { return timebase.Duration(); });
    log.agrees("StartTime", its.startTime, [&] { return timebase.StartTime(); });
    log.agrees("StopMode", its.stopMode, [&] { return timebase.StopMode(); });
    log.agrees("StartMode", its.startMode, [&] { return timebase.StartMode(); });
}

void compareParameters(const OpenedInstrument& opened, const InstrumentSettings& held)
{
    if (!opened.parameters)
        return;
    for (std::int32_t group = 0; group < std::ssize(held.groups); ++group)
        opened.log.must(calledWith("GetTriggerGroupName", {group}),
                        [&] { return opened.parameters->GetTriggerGroupName(group); });
    forEachChannel(held, [&](const ChannelSettings& it, std::int32_t group, std::int32_t channel) {
        compareTriggering(opened, it, group, channel);
    });
}

void compareLines(const OpenedInstrument& opened, const InstrumentSettings& held)
{
    if (!opened.lines || !held.triggerLines)
        return;
    CheckLog& log = opened.log;
    TriggerLines& lines = *opened.lines;
    const TriggerLineSettings& its = *held.triggerLines;
    log.agrees("StartMasterRank", its.startMasterRank, [&] { return lines.StartMasterRank(); });
    log.agrees("StartTriggerLine", its.startTriggerLine, [&] { return lines.StartTriggerLine(); });
    log.agrees("ScanMasterRank", its.scanMasterRank, [&] { return lines.ScanMasterRank(); });
    log.agrees("ScanTriggerLine", its.scanTriggerLine, [&] { return lines.ScanTriggerLine(); });
    log.agrees("StartLinesAsMaster", its.startLinesAsMaster, [&] { return lines.StartLinesAsMaster(); });
    log.agrees("StartLinesAsListener", its.startLinesAsListener, [&] { return lines.StartLinesAsListener(); });
    log.agrees("ScanLinesAsMaster", its.scanLinesAsMaster, [&] { return lines.ScanLinesAsMaster(); });
    log.agrees("ScanLinesAsListener", its.scanLinesAsListener, [&] { return lines.ScanLinesAsListener(); });
}

void compareAnswers(const OpenedInstrument& opened)
{
    const InstrumentSettings held = opened.held();
    compareGroups(opened, held);
    compareTimebase(opened, held);
    compareParameters(opened, held);
    compareLines(opened, held);
}

} // namespace ko
