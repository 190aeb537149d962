#pragma once

#include "interfaces/Values.h"

#include <string>
#include <vector>

namespace ko {

/// The trigger parameters of a driver's channels. Every operation takes the slot (the channel group's index) and
/// the channel's index within it, both from 0.
///
/// Parameter types are the texts "Bool", "String", "StringReadOnly", "Enum", "Float" and "Integer", compared
/// exactly.
class TriggerParameters {
public:
    virtual std::int32_t GetTriggerParamCount(std::int32_t slot, std::int32_t channel) = 0;
    virtual std::int32_t GetTriggerParamId(std::int32_t slot, std::int32_t channel, std::int32_t index) = 0;
    virtual std::string GetTriggerParamName(std::int32_t slot, std::int32_t channel, std::int32_t id) = 0;
    virtual std::string GetTriggerParamType(std::int32_t slot, std::int32_t channel, std::int32_t id) = 0;
    virtual Value GetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id) = 0;
    /// Called only for type "Enum".
    virtual std::vector<std::string> GetTriggerParamChoices(std::int32_t slot, std::int32_t channel,
                                                            std::int32_t id) = 0;
    /// Called only for types "Float" and "Integer"; where there is no bound, the smallest or largest value of the type.
    virtual double GetTriggerParamMin(std::int32_t slot, std::int32_t channel, std::int32_t id) = 0;
    virtual double GetTriggerParamMax(std::int32_t slot, std::int32_t channel, std::int32_t id) = 0;
    virtual void SetTriggerParamValue(std::int32_t slot, std::int32_t channel, std::int32_t id, const Value& value) = 0;

    /// Whether the channel is the driver's trigger source.
    virtual bool TriggerEnabled(std::int32_t slot, std::int32_t channel) = 0;
    virtual void setTriggerEnabled(std::int32_t slot, std::int32_t channel, bool enabled) = 0;
    /// Whether the channel can act as a trigger source at all.
    virtual bool CanTrigger(std::int32_t slot, std::int32_t channel) = 0;
    /// The group's name in the trigger hardware, for drivers whose `Driver::GroupName` fails.
    virtual std::string GetTriggerGroupName(std::int32_t slot) = 0;

protected:
    ~TriggerParameters() = default;
};

} // namespace ko
