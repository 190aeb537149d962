#include "modules/sigrok/SigrokInstrument.h"

#include "modules/sigrok/DeviceSettings.h"

#include <cmath>

namespace ko::sigrok {

SigrokInstrument::Opened::Opened(std::shared_ptr<Library> library, const std::string& description,
                                 const DeviceOptions& given)
    : device(std::move(library), deviceAddress(description)), options(device)
{
    options.set(given);
    rates = sampleRatesOf(device);
}

std::unique_ptr<Instrument> SigrokInstrument::open(std::shared_ptr<Library> library, const std::string& device,
                                                   const DeviceOptions& options)
{
    auto opened = std::make_unique<Opened>(std::move(library), device, options);
    return std::unique_ptr<Instrument>(new SigrokInstrument(std::move(opened)));
}

SigrokInstrument::SigrokInstrument(std::unique_ptr<Opened> opened)
    : KeptInstrument(settingsOf(opened->device, opened->options, opened->rates)), opened_(std::move(opened)),
      acquisition_(opened_->device, opened_->options, opened_->rates, held())
{
}

double SigrokInstrument::keptSamplePeriod(double requested)
{
    if (!opened_->rates || !std::isfinite(requested))
        return KeptInstrument::keptSamplePeriod(requested);
    return periodOf(opened_->rates->nearest(requested));
}

} // namespace ko::sigrok
