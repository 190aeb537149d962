#pragma once

#include "host/instruments/KeptInstrument.h"
#include "modules/sigrok/SigrokAcquisition.h"

namespace ko::sigrok {

/// An open device with what it is set to, as the host sees it.
class SigrokInstrument final : public KeptInstrument {
public:
    /// Opens the device and sets the options on it. Fails with a `Failure`.
    static std::unique_ptr<Instrument> open(std::shared_ptr<Library> library, const std::string& device,
                                            const DeviceOptions& options);

    /// Fails with 5 also if the settings have other channels.
    void restore(const InstrumentSettings& settings) override;
    [[nodiscard]] Acquisition* acquisition() override { return &acquisition_; }

private:
    /// What is known of a device when it is open.
    struct Opened {
        Opened(std::shared_ptr<Library> library, const std::string& description, const DeviceOptions& given);

        std::shared_ptr<Device> device;
        Options options;
        std::optional<SampleRates> rates;
    };

    explicit SigrokInstrument(std::unique_ptr<Opened> opened);

    double keptSamplePeriod(double requested) override;

    std::unique_ptr<Opened> opened_;
    SigrokAcquisition acquisition_;
};

} // namespace ko::sigrok
