#include "host/modules/WriteCheck.h"

#include "host/instruments/HeldNumbers.h"
#include "host/instruments/KeptInstrument.h"
#include "host/setup/SetupFile.h"
#include "host/setup/SetupWriter.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

/// Returns an offered number that is not the one held.
double otherNumber(const QuantitySettings& held)
{
    const auto isOther = [&](double it) { return it != held.value; };
    const auto choice = std::find_if(held.choices.begin(), held.choices.end(), isOther);
    if (choice != held.choices.end())
        return *choice;
    if (held.range != Range{})
        return isOther(held.range.minimum) ? held.range.minimum : held.range.maximum;
    return held.value * 2.0;
}

Value otherValue(const ParameterSettings& held)
{
    const auto isOther = [&](const std::string& it) { return Value(it) != held.value; };
    const auto choice = std::find_if(held.choices.begin(), held.choices.end(), isOther);
    if (choice != held.choices.end())
        return *choice;
    if (const auto* const flag = std::get_if<bool>(&held.value))
        return !*flag;
    if (const auto* const whole = std::get_if<std::int32_t>(&held.value))
        return *whole > 0 ? *whole - 1 : *whole + 1;
    const auto* const number = std::get_if<double>(&held.value);
    return number ? Value(*number > 0.0 ? *number / 2.0 : *number + 0.5) : held.value;
}

/// Changes what the driver's operations change.
void writeOthers(const OpenedInstrument& opened, const InstrumentSettings& held)
{
    CheckLog& log = opened.log;
    if (opened.timebase) {
        for (const HeldNumber& it : heldNumbers)
            log.may(numberCall("set", it.number->name),
                    [&] { (opened.timebase->*it.number->set)(otherNumber((*held.timebase).*it.held)); });
        log.may("setDuration", [&] { opened.timebase->setDuration(held.timebase->duration + 1.0F); });
        log.may("setStartTime", [&] { opened.timebase->setStartTime(DateTime{46000.25}); });
        const bool isAtOnce = held.timebase->startMode == startMode::immediately;
        log.may("setStartMode",
                [&] { opened.timebase->setStartMode(isAtOnce ? startMode::atTime : startMode::immediately); });
    }
    if (opened.lines)
        log.may("setStartTriggerLine", [&] { opened.lines->setStartTriggerLine(3); });
    if (!opened.parameters)
        return;
    forEachChannel(held, [&](const ChannelSettings& it, std::int32_t group, std::int32_t channel) {
        for (const ParameterSettings& parameter : it.triggerParameters)
            log.may("SetTriggerParamValue", [&] {
                opened.parameters->SetTriggerParamValue(group, channel, parameter.id, otherValue(parameter));
            });
        log.may("setTriggerEnabled",
                [&] { opened.parameters->setTriggerEnabled(group, channel, it.canTrigger && !it.triggerSource); });
    });
}

/// Changes what the host changes without an operation.
InstrumentSettings renamed(InstrumentSettings settings)
{
    settings.name += " renamed";
    forEachChannel(settings, [](ChannelSettings& it, std::int32_t, std::int32_t channel) {
        it.name = "renamed " + std::to_string(channel);
        it.enabled = std::int32_t{!it.isEnabled()};
    });
    return settings;
}

std::vector<InstrumentSettings> withOtherViews(const InstrumentSettings& held)
{
    std::vector<InstrumentSettings> others(3, held);
    held.timebase ? others[0].timebase.reset() : void(others[0].timebase.emplace());
    held.triggerLines ? others[1].triggerLines.reset() : void(others[1].triggerLines.emplace());
    others[2].hasTriggerParameters = !held.hasTriggerParameters;
    return others;
}

void checkSetupFile(const OpenedInstrument& opened, InstrumentSettings held)
{
    held.module = "module";
    held.device = "device";
    opened.log.must("held, kept in a set-up file", [&] {
        const Setup setup{.title = {}, .clock = {}, .instruments = {held}};
        const Setup read = parseSetup(setupText(setup), "set-up");
        if (const std::string place = differenceOf(held, read.instruments.front()); !place.empty())
            throw Failure(failure::unspecified, "is read with another " + place);
    });
}

void checkAddresses(const OpenedInstrument& opened, const InstrumentSettings& held)
{
    std::vector<std::string> seen;
    forEachChannel(held, [&](const ChannelSettings& it, std::int32_t, std::int32_t) {
        if (it.address.empty() || std::find(seen.begin(), seen.end(), it.address) != seen.end())
            opened.log.blame("held", "has the channel address \"" + it.address + "\" twice, or it is empty");
        seen.push_back(it.address);
        std::vector<std::int32_t> ids;
        for (const ParameterSettings& parameter : it.triggerParameters) {
            if (std::find(ids.begin(), ids.end(), parameter.id) != ids.end())
                opened.log.blame("held", "has the trigger parameter " + std::to_string(parameter.id) + " twice");
            ids.push_back(parameter.id);
        }
    });
}

} // namespace

std::string differenceOf(const InstrumentSettings& one, const InstrumentSettings& other)
{
    const auto changes = nlohmann::ordered_json::diff(toJson(one), toJson(other));
    if (changes.empty())
        return one == other ? "" : "setting";
    return changes.front().at("path").get<std::string>();
}

void restoreExactly(const OpenedInstrument& opened, const InstrumentSettings& settings, const std::string& call)
{
    CheckLog& log = opened.log;
    log.must(call, [&] { opened.instrument.restore(settings); });
    const auto place = log.must("held", [&] { return differenceOf(opened.instrument.held(), settings); });
    if (place && !place->empty())
        log.blame(call, "leaves another " + *place + " than it was given");
    log.after(call);
    const auto isSame = [&](const char* query, const auto* before, auto now) {
        if (log.must(query, now).value_or(nullptr) != before)
            log.blame(query, "returns another object");
    };
    Driver& driver = opened.driver;
    isSame("driver", &driver, [&] { return &opened.instrument.driver(); });
    if (opened.timebase)
        isSame("queryTimebase", opened.timebase, [&] { return driver.queryTimebase(); });
    if (opened.parameters)
        isSame("queryTriggerParameters", opened.parameters, [&] { return driver.queryTriggerParameters(); });
    if (opened.lines)
        isSame("queryTriggerLines", opened.lines, [&] { return driver.queryTriggerLines(); });
    compareAnswers(opened);
    log.after({});
}

void checkRestore(const OpenedInstrument& opened)
{
    const InstrumentSettings original = opened.held();
    checkAddresses(opened, original);
    checkSetupFile(opened, original);
    restoreExactly(opened, original, "restore(held())");
    writeOthers(opened, original);
    const InstrumentSettings changed = renamed(opened.held());
    checkSetupFile(opened, changed);
    restoreExactly(opened, original, "restore, of earlier settings");
    restoreExactly(opened, changed, "restore, of other settings");
    for (const InstrumentSettings& others : withOtherViews(changed)) {
        opened.log.mustFail("restore, of other views", [&] { opened.instrument.restore(others); });
        if (!differenceOf(opened.held(), changed).empty())
            opened.log.blame("restore, of other views", "does not keep the settings");
    }
    restoreExactly(opened, original, "restore, of the first settings");
}

} // namespace ko
