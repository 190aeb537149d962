#include "host/modules/WriteCheck.h"

#include "host/instruments/HeldNumbers.h"
#include "host/instruments/KeptInstrument.h"
#include "host/instruments/ParameterTypes.h"
#include "host/setup/SetupWriter.h"

#include <cmath>
#include <limits>

namespace ko {

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double huge = 1e300;

struct WriteCheck {
    const OpenedInstrument& opened;
    InstrumentSettings original;

    using Compare = void (*)(const OpenedInstrument&, const InstrumentSettings&);

    /// Makes the call, which may fail, and compares afterwards.
    template <class Act> void write(const std::string& call, Compare compare, const Act& act) const
    {
        opened.log.may(call, act);
        opened.log.after(call);
        compare(opened, opened.held());
        opened.log.after({});
    }

    void timebase() const
    {
        for (const HeldNumber& it : heldNumbers)
            number(it, (*original.timebase).*it.held);
        const std::string duration = numberCall("set", "duration");
        for (const double seconds : {0.0, -1.0, notANumber, infinite, static_cast<double>(original.timebase->duration)})
            write(duration + "(" + checkedNumber(seconds) + ")", compareTimebase,
                  [&] { opened.timebase->setDuration(static_cast<float>(seconds)); });
        for (const double days : {0.5, 46000.25, notANumber, original.timebase->startTime.days})
            write("setStartTime(" + checkedNumber(days) + ")", compareTimebase,
                  [&] { opened.timebase->setStartTime(DateTime{days}); });
        for (const std::int32_t mode : {0, 1, 2, 3, -1}) {
            write(calledWith("setStartMode", {mode}), compareTimebase, [&] { opened.timebase->setStartMode(mode); });
            write(calledWith("setStopMode", {mode}), compareTimebase, [&] { opened.timebase->setStopMode(mode); });
        }
    }

    void number(const HeldNumber& it, const QuantitySettings& held) const
    {
        if (const auto kept = set(it, held.value); kept && *kept != held.value)
            opened.log.blame(numberCall("set", it.number->name),
                             "does not keep its own value " + checkedNumber(held.value));
        for (const double offered : offersOf(held)) {
            const double before = get(it).value_or(offered);
            const auto kept = set(it, offered);
            if (kept && *kept != offered && *kept != before)
                opened.log.blame(numberCall("set", it.number->name), "keeps " + checkedNumber(*kept) + " for " +
                                                                         checkedNumber(offered) + ", which it offers");
        }
        for (const double bad : {0.0, -held.value, notANumber, infinite, -infinite, huge})
            set(it, bad);
        set(it, held.value);
    }

    static std::vector<double> offersOf(const QuantitySettings& held)
    {
        std::vector<double> offers = held.choices;
        if (offers.empty() && held.range != Range{})
            offers = {held.range.minimum, held.range.maximum};
        return offers;
    }

    [[nodiscard]] std::optional<double> get(const HeldNumber& it) const
    {
        return opened.log.must(numberCall("", it.number->name), [&] { return (opened.timebase->*it.number->get)(); });
    }

    /// Returns what is read back.
    std::optional<double> set(const HeldNumber& it, double value) const
    {
        write(numberCall("set", it.number->name) + "(" + checkedNumber(value) + ")", compareTimebase,
              [&] { (opened.timebase->*it.number->set)(value); });
        return get(it);
    }

    void parameters() const
    {
        forEachChannel(original, [&](const ChannelSettings& it, std::int32_t group, std::int32_t channel) {
            for (const ParameterSettings& parameter : it.triggerParameters)
                this->parameter(parameter, group, channel);
            for (const bool flag : {true, false, it.triggerSource})
                write(calledWith("setTriggerEnabled", {group, channel, flag}), compareParameters,
                      [&] { opened.parameters->setTriggerEnabled(group, channel, flag); });
        });
    }

    void parameter(const ParameterSettings& held, std::int32_t group, std::int32_t channel) const
    {
        const std::string call = calledWith("SetTriggerParamValue", {group, channel, held.id});
        std::vector<Value> values{Value{}, true, std::int32_t{1}, 1.5, notANumber, infinite, -huge, "no such choice"};
        for (const std::string& choice : held.choices)
            values.emplace_back(choice);
        for (const auto& bound : {held.minimum, held.maximum})
            if (bound)
                values.emplace_back(*bound);
        values.push_back(held.value);
        for (const Value& value : values) {
            write(call + " to " + jsonText(callValue(value)), compareParameters,
                  [&] { opened.parameters->SetTriggerParamValue(group, channel, held.id, value); });
            const auto kept = opened.log.must(calledWith("GetTriggerParamValue", {group, channel, held.id}), [&] {
                return opened.parameters->GetTriggerParamValue(group, channel, held.id);
            });
            judge(call, held, value, kept);
        }
    }

    void judge(const std::string& call, const ParameterSettings& held, const Value& written,
               const std::optional<Value>& kept) const
    {
        if (!kept)
            return;
        const auto number = numberOf(*kept);
        const std::string is = "keeps " + jsonText(callValue(*kept)) + " for " + jsonText(callValue(written));
        if (!fitted(*kept, held.type) || (number && !std::isfinite(*number)))
            opened.log.blame(call, is + ", which is no value of type " + held.type);
        if (written == held.value && *kept != held.value)
            opened.log.blame(call, is + ", its own value");
    }

    void lines() const
    {
        const TriggerLineSettings& held = *original.triggerLines;
        const auto all = [&](const char* call, void (TriggerLines::*setter)(std::int32_t), std::int32_t own) {
            using Limits = std::numeric_limits<std::int32_t>;
            for (const std::int32_t line : {0, 7, 8, -2, Limits::max(), Limits::min(), -1, own})
                write(calledWith(call, {line}), compareLines, [&] { (opened.lines->*setter)(line); });
        };
        all("setStartTriggerLine", &TriggerLines::setStartTriggerLine, held.startTriggerLine);
        all("setStartTriggerInput", &TriggerLines::setStartTriggerInput, held.startTriggerInput);
        all("setScanTriggerLine", &TriggerLines::setScanTriggerLine, held.scanTriggerLine);
        all("setScanTriggerInput", &TriggerLines::setScanTriggerInput, held.scanTriggerInput);
    }
};

} // namespace

void checkWrites(const OpenedInstrument& opened)
{
    const WriteCheck check{opened, opened.held()};
    if (opened.timebase)
        check.timebase();
    if (opened.parameters)
        check.parameters();
    if (opened.lines)
        check.lines();
    restoreExactly(opened, check.original, "restore, after all writes");
}

} // namespace ko
