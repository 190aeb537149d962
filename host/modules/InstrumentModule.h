#pragma once

#include "host/instruments/Instrument.h"

#include <QtPlugin>
#include <memory>
#include <string>
#include <vector>

namespace ko {

/// A device that a driver module has found.
struct FoundDevice {
    std::string device; ///< opens it again, also later; set-ups name it so
    std::string title;  ///< for people: "Demo device"

    bool operator==(const FoundDevice&) const = default;
};

/// A driver module: finds devices of some kind and opens them. It is a plug-in of Qt whose root object implements this
/// interface. The host loads it once, keeps it loaded, and destroys each instrument before the program ends. Members
/// are called one at a time, on any thread; those of an opened instrument on the user-interface thread, see
/// `Instrument` and `Acquisition`. Any member may throw a `Failure` or another `std::exception`: the host shows its
/// text and goes on.
class InstrumentModule {
public:
    virtual ~InstrumentModule() = default;

    /// The name by which set-ups know the module: a word, always the same.
    [[nodiscard]] virtual std::string name() const = 0;

    /// The module's version and what it is built on, for people; may be empty.
    [[nodiscard]] virtual std::string about() const { return {}; }

    /// Returns the devices that are present. May take seconds. Fails if the search cannot be made; a device that cannot
    /// be used is left out.
    virtual std::vector<FoundDevice> devices() = 0;

    /// Opens a device with these options. It holds what the device is set to at first, all options included; the host
    /// then restores what the set-up keeps. Fails if the device is not there or in use, and for an option that the
    /// device does not have or a value that it does not take. The device is closed with the instrument.
    virtual std::unique_ptr<Instrument> open(const std::string& device, const DeviceOptions& options) = 0;
};

} // namespace ko

/// The interface's identifier; it ends in the version, which changes whenever a module must be built anew.
#define KORVELL_INSTRUMENT_MODULE "org.korvell.InstrumentModule/1"
Q_DECLARE_INTERFACE(ko::InstrumentModule, KORVELL_INSTRUMENT_MODULE)
