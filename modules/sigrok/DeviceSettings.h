#pragma once

#include "modules/sigrok/Options.h"
#include "modules/sigrok/SampleRates.h"

namespace ko::sigrok {

/// The rates that a device offers; none if it samples at no rate of its own, as a meter.
std::optional<SampleRates> sampleRatesOf(const Device& device);

/// What an open device is set to and offers, for the page.
InstrumentSettings settingsOf(const Device& device, const Options& options, const std::optional<SampleRates>& rates);

} // namespace ko::sigrok
