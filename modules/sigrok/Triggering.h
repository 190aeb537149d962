#pragma once

#include "host/instruments/InstrumentSettings.h"
#include "modules/sigrok/Device.h"

namespace ko::sigrok {

/// How the channels of a device can trigger.
struct TriggerOffer {
    std::vector<int> matches;                  ///< of `sr_trigger_matches`
    std::optional<std::uint64_t> captureRatio; ///< the present one; none: the device has no such setting
};

TriggerOffer triggerOfferOf(const Device& device);

/// The trigger parameters of a channel; none if it cannot trigger. Analog channels trigger if the device has levels.
std::vector<ParameterSettings> triggerParametersOf(const TriggerOffer& offer, bool isLogic);

/// When a channel triggers.
struct TriggerMatch {
    int match = 0; ///< of `sr_trigger_matches`
    float level = 0.0F;
};

/// Fails with a `Failure` if the channel's parameters say what no channel can do.
TriggerMatch triggerMatchOf(const ChannelSettings& channel);

/// The part of a recording before the trigger, in percent; none if the device has no such setting.
std::optional<std::int32_t> captureRatioOf(const ChannelSettings& channel);

} // namespace ko::sigrok
