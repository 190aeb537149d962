#pragma once

#include "modules/sigrok/AcquisitionRun.h"
#include "modules/sigrok/Options.h"
#include "modules/sigrok/SampleRates.h"

namespace ko::sigrok {

/// Acquires with libsigrok, in real time. The settings go to the device when it is armed.
class SigrokAcquisition final : public Acquisition {
public:
    /// What it refers to must outlive it.
    SigrokAcquisition(std::shared_ptr<Device> device, Options& options, const std::optional<SampleRates>& rates,
                      const InstrumentSettings& held);
    ~SigrokAcquisition() override { SigrokAcquisition::stop(); }
    SigrokAcquisition(const SigrokAcquisition&) = delete;
    SigrokAcquisition& operator=(const SigrokAcquisition&) = delete;

    [[nodiscard]] ArmedSettings settingsToArm() const override;
    ArmedSettings arm() override;
    void start(const AcquisitionOrder& order, BlockSink& sink) override;
    void stop() override;

private:
    [[nodiscard]] ArmedDevice armedDevice() const;
    [[nodiscard]] sr_channel* channelAt(std::int32_t group, std::int32_t channel) const;
    void setChannels(const ArmedDevice& armed);
    void setSampleRate(double period);
    void limitSamples(std::int64_t samples);

    std::shared_ptr<Device> device_;
    Options& options_;
    const std::optional<SampleRates>& rates_;
    const InstrumentSettings& held_;
    std::shared_ptr<Units> units_ = std::make_shared<Units>();
    std::optional<ArmedDevice> armed_;
    std::unique_ptr<AcquisitionRun> run_;
    bool isStuck_ = false; ///< the device did not stop in time
};

} // namespace ko::sigrok
