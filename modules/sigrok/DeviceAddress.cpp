#include "modules/sigrok/DeviceAddress.h"

#include "platform/Failure.h"

#include <sstream>

namespace ko::sigrok {

DeviceAddress deviceAddress(const std::string& text)
{
    std::istringstream parts(text);
    DeviceAddress address;
    std::getline(parts, address.driver, ':');
    bool isGood = !address.driver.empty() && !text.ends_with(':');
    for (std::string part; std::getline(parts, part, ':');) {
        const std::size_t equals = part.find('=');
        isGood = isGood && equals != std::string::npos && equals > 0;
        if (isGood)
            isGood = address.options.emplace(part.substr(0, equals), part.substr(equals + 1)).second;
    }
    if (!isGood)
        throw Failure(failure::unspecified, "\"" + text + "\" is not a driver with options, as \"fx2lafw:conn=1.5\"");
    return address;
}

} // namespace ko::sigrok
