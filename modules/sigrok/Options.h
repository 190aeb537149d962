#pragma once

#include "host/instruments/InstrumentSettings.h"
#include "modules/sigrok/Device.h"

namespace ko::sigrok {

/// What else can be set on a device, by libsigrok's names, those of a channel group with its name: "pattern A0". Left
/// out are the settings that the page has, limits, what would give samples other times than the sample rate says, and
/// what has effects outside of a measurement, as the output of a power supply.
class Options {
public:
    /// Fails with a `Failure` if the device cannot be asked.
    explicit Options(Device& device);

    /// All options with their present values; empty for one that the device does not return and was not set.
    [[nodiscard]] DeviceOptions present() const;

    /// Sets the options that differ and reads them back; an empty text leaves one alone that the device does not
    /// return. Fails with a `Failure` that names an unknown option or a value that is not taken, and what is offered.
    void set(const DeviceOptions& wanted);

private:
    struct Option {
        std::string name;
        std::uint32_t key = 0;
        sr_channel_group* group = nullptr;
        int datatype = 0;
        std::string given; ///< last set; for one that the device does not return
    };

    void add(std::uint32_t key, sr_channel_group* group);
    Option& named(const std::string& name);
    [[nodiscard]] std::string textOfPresent(const Option& option) const;
    [[nodiscard]] Variant valueFor(const Option& option, const std::string& text) const;
    void set(Option& option, const std::string& text);

    Device& device_;
    std::vector<Option> options_;
};

} // namespace ko::sigrok
