#pragma once

#include <map>
#include <string>

namespace ko::sigrok {

/// Which driver finds a device, and how.
struct DeviceAddress {
    std::string driver;
    std::map<std::string, std::string> options; ///< of the search, by libsigrok's names: "conn", "serialcomm"

    bool operator==(const DeviceAddress&) const = default;
};

/// Reads "DRIVER" or "DRIVER:NAME=VALUE:NAME=VALUE". Fails with a `Failure` for another text.
DeviceAddress deviceAddress(const std::string& text);

} // namespace ko::sigrok
