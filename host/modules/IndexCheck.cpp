#include "host/modules/DriverAnswers.h"

#include <limits>

namespace ko {

namespace {

/// Indices that a list of this length does not have.
std::vector<std::int32_t> indicesBeside(std::size_t count)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return {-1, static_cast<std::int32_t>(count), Limits::max(), Limits::min()};
}

struct IndexCheck {
    const OpenedInstrument& opened;

    template <class Act>
    void refused(std::string_view operation, std::initializer_list<std::int32_t> arguments, const Act& act) const
    {
        opened.log.mustFail(calledWith(operation, arguments), act);
    }

    void groups(const std::vector<GroupSettings>& groups) const
    {
        Driver& driver = opened.driver;
        for (const std::int32_t group : indicesBeside(groups.size())) {
            refused("ChannelCount", {group}, [&] { return driver.ChannelCount(group); });
            refused("GroupName", {group}, [&] { return driver.GroupName(group); });
            channel(group, 0);
            if (opened.parameters)
                refused("GetTriggerGroupName", {group}, [&] { return opened.parameters->GetTriggerGroupName(group); });
        }
        for (std::int32_t group = 0; group < std::ssize(groups); ++group) {
            const auto& channels = groups[static_cast<std::size_t>(group)].channels;
            for (const std::int32_t bad : indicesBeside(channels.size()))
                channel(group, bad);
            if (!channels.empty())
                existingChannel(group, channels.front());
        }
    }

    /// One that does not exist.
    void channel(std::int32_t group, std::int32_t channel) const
    {
        for (const std::int32_t number : {attribute::address, attribute::enabled, attribute::name})
            refused("ChannelAttribute", {group, channel, number},
                    [&] { return opened.driver.ChannelAttribute(group, channel, number); });
        if (!opened.parameters)
            return;
        TriggerParameters& parameters = *opened.parameters;
        refused("GetTriggerParamCount", {group, channel},
                [&] { return parameters.GetTriggerParamCount(group, channel); });
        refused("TriggerEnabled", {group, channel}, [&] { return parameters.TriggerEnabled(group, channel); });
        refused("setTriggerEnabled", {group, channel}, [&] { parameters.setTriggerEnabled(group, channel, false); });
        refused("CanTrigger", {group, channel}, [&] { return parameters.CanTrigger(group, channel); });
        parameter(group, channel, 0);
    }

    void existingChannel(std::int32_t group, const ChannelSettings& held) const
    {
        for (const std::int32_t number : {0, attribute::name + 1, -1})
            refused("ChannelAttribute", {group, 0, number},
                    [&] { return opened.driver.ChannelAttribute(group, 0, number); });
        if (!opened.parameters)
            return;
        for (const std::int32_t index : indicesBeside(held.triggerParameters.size()))
            refused("GetTriggerParamId", {group, 0, index},
                    [&] { return opened.parameters->GetTriggerParamId(group, 0, index); });
        std::int32_t unknown = std::numeric_limits<std::int32_t>::max();
        for (const ParameterSettings& it : held.triggerParameters)
            unknown = it.id == unknown ? unknown - 1 : unknown;
        parameter(group, 0, unknown);
    }

    void parameter(std::int32_t group, std::int32_t channel, std::int32_t id) const
    {
        TriggerParameters& parameters = *opened.parameters;
        const auto ask = [&](std::string_view name, auto operation) {
            refused(name, {group, channel, id}, [&] { return (parameters.*operation)(group, channel, id); });
        };
        ask("GetTriggerParamName", &TriggerParameters::GetTriggerParamName);
        ask("GetTriggerParamType", &TriggerParameters::GetTriggerParamType);
        ask("GetTriggerParamValue", &TriggerParameters::GetTriggerParamValue);
        ask("GetTriggerParamChoices", &TriggerParameters::GetTriggerParamChoices);
        ask("GetTriggerParamMin", &TriggerParameters::GetTriggerParamMin);
        ask("GetTriggerParamMax", &TriggerParameters::GetTriggerParamMax);
        refused("SetTriggerParamValue", {group, channel, id},
                [&] { parameters.SetTriggerParamValue(group, channel, id, 1); });
    }
};

} // namespace

void checkIndices(const OpenedInstrument& opened)
{
    const InstrumentSettings held = opened.held();
    IndexCheck{opened}.groups(held.groups);
    compareAnswers(opened);
}

} // namespace ko
