#pragma once

#include "host/instruments/Instrument.h"
#include "host/modules/InstrumentModule.h"

#include <functional>
#include <set>
#include <stdexcept>

namespace ko::test {

/// What a scripted module does otherwise than a good one.
struct Script {
    std::set<std::string> throws;     ///< these calls throw "CALL throws"
    std::set<std::string> neverFails; ///< these answer something where they must fail
    bool isSilent = false;            ///< what is thrown has no text
    bool isGone = false;              ///< the device is not there
    int missing = 0;                  ///< the device is not there for as many openings
    bool isRestless = false;          ///< `queryTimebase` returns another object each time
    std::vector<FoundDevice> found{{"a", "Device a"}, {"b", "Device b"}};
    std::function<std::string()> name;             ///< returns the module's name
    std::function<void(InstrumentSettings&)> held; ///< changes what is held, but not what the driver answers
    std::function<double(double)> keeps;           ///< the sample period that is kept
    std::function<void(ArmedSettings&)> arm;       ///< changes what `arm` returns
    std::function<void(BlockSink&)> start;         ///< called by `start`
    std::function<void(BlockSink&, std::int64_t)> triggered;
    std::function<void(BlockSink&, Block)> deliver;
    std::function<void(BlockSink&, std::int64_t, const std::string&)> ended;

    template <class Act> auto run(const std::string& call, const Act& act) const
    {
        if (throws.contains(call) && isSilent)
            throw Failure(failure::unspecified, "");
        if (throws.contains(call))
            throw std::runtime_error(call + " throws");
        if (neverFails.contains(call))
            try {
                return act();
            } catch (const Failure&) {
                return decltype(act())();
            }
        return act();
    }
};

using SharedScript = std::shared_ptr<Script>;

inline auto delivers(const decltype(Script::deliver)& deliver)
{
    return [=](Script& it) { it.deliver = deliver; };
}

inline auto ends(const decltype(Script::ended)& ended)
{
    return [=](Script& it) { it.ended = ended; };
}

/// The settings of each scripted device.
inline InstrumentSettings scriptedSettings(const DeviceOptions& options)
{
    InstrumentSettings settings;
    settings.name = "Scripted device";
    settings.options = {{"gain", "1"}};
    for (const auto& [name, value] : options) {
        if (name != "gain" || (value != "1" && value != "2"))
            throw Failure(failure::unspecified, std::string("has no option ").append(name).append("=").append(value));
        settings.options[name] = value;
    }
    const auto parameter = [](std::int32_t id, const char* name, const char* type, Value value) {
        ParameterSettings made;
        made.id = id;
        made.name = name;
        made.type = type;
        made.value = std::move(value);
        return made;
    };
    for (const int slot : {1, 2}) {
        GroupSettings& group = settings.groups.emplace_back();
        group.name = "Slot " + std::to_string(slot);
        for (const int number : {1, 2}) {
            ChannelSettings& channel = group.channels.emplace_back();
            channel.address = std::to_string(slot) + ":" + std::to_string(number);
            channel.name = "Channel " + channel.address;
        }
    }
    ChannelSettings& first = settings.groups[0].channels[0];
    first.triggerParameters = {parameter(2, "Level", "Float", 0.5), parameter(3, "Slope", "Enum", "Rising"),
                               parameter(4, "Filter", "Bool", false), parameter(5, "Count", "Integer", 7)};
    first.triggerParameters[0].minimum = -1.0;
    first.triggerParameters[0].role = parameterRole::level;
    first.triggerParameters[1].choices = {"Rising", "Falling"};
    settings.triggerLines.emplace().startMasterRank = 5;
    settings.timebase.emplace();
    settings.timebase->samplePeriod.choices = {0.001, 0.002, 0.005};
    settings.timebase->blockSize = {.value = 10.0, .choices = {}, .range = {1.0, 1000.0}, .keeps = {}};
    settings.timebase->duration = 0.05F;
    return settings;
}

} // namespace ko::test
