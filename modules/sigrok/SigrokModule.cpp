#include "modules/sigrok/SigrokModule.h"

#include "modules/sigrok/SigrokInstrument.h"

namespace ko::sigrok {

std::string SigrokModule::about() const
{
    return std::string("libsigrok ") + sr_package_version_string_get();
}

Library& SigrokModule::library()
{
    if (!library_)
        library_ = std::make_shared<Library>();
    return *library_;
}

std::vector<FoundDevice> SigrokModule::devices()
{
    return library().devices();
}

std::unique_ptr<Instrument> SigrokModule::open(const std::string& device, const DeviceOptions& options)
{
    library();
    return SigrokInstrument::open(library_, device, options);
}

} // namespace ko::sigrok
