#include "modules/sigrok/SigrokInstrument.h"

#include "modules/sigrok/DeviceSettings.h"

#include <algorithm>
#include <cmath>

namespace ko::sigrok {

namespace {

bool hasSameChannels(const GroupSettings& one, const GroupSettings& other)
{
    return std::equal(one.channels.begin(), one.channels.end(), other.channels.begin(), other.channels.end(),
                      [](const ChannelSettings& a, const ChannelSettings& b) { return a.address == b.address; });
}

} // namespace

SigrokInstrument::Opened::Opened(std::shared_ptr<Library> library, const std::string& description,
                                 const DeviceOptions& given)
    : device(std::make_shared<Device>(std::move(library), deviceAddress(description))), options(*device)
{
    options.set(given);
    rates = sampleRatesOf(*device);
}

std::unique_ptr<Instrument> SigrokInstrument::open(std::shared_ptr<Library> library, const std::string& device,
                                                   const DeviceOptions& options)
{
    auto opened = std::make_unique<Opened>(std::move(library), device, options);
    return std::unique_ptr<Instrument>(new SigrokInstrument(std::move(opened)));
}

SigrokInstrument::SigrokInstrument(std::unique_ptr<Opened> opened)
    : KeptInstrument(settingsOf(*opened->device, opened->options, opened->rates)), opened_(std::move(opened)),
      acquisition_(opened_->device, opened_->options, opened_->rates, held())
{
}

void SigrokInstrument::restore(const InstrumentSettings& settings)
{
    const auto& groups = held().groups;
    if (!std::equal(groups.begin(), groups.end(), settings.groups.begin(), settings.groups.end(), hasSameChannels))
        fail(failure::invalidCall);
    KeptInstrument::restore(settings);
}

double SigrokInstrument::keptSamplePeriod(double requested)
{
    if (!opened_->rates || !std::isfinite(requested))
        return KeptInstrument::keptSamplePeriod(requested);
    return periodOf(opened_->rates->nearest(requested));
}

} // namespace ko::sigrok
