#pragma once

#include "host/instruments/KeptInstrument.h"

#include <thread>

/// Samples the machine's load on a thread of its own.
class LoadAcquisition final : public ko::Acquisition {
public:
    /// `held` are the settings of the instrument, which owns the acquisition.
    explicit LoadAcquisition(const ko::InstrumentSettings& held) : held_(held) {}
    ~LoadAcquisition() override { LoadAcquisition::stop(); }

    ko::ArmedSettings settingsToArm() const override { return ko::armedSettings(held_); }
    ko::ArmedSettings arm() override;
    void start(const ko::AcquisitionOrder& order, ko::BlockSink& sink) override;
    void stop() override;

private:
    const ko::InstrumentSettings& held_;
    std::optional<ko::ArmedSettings> armed_;
    int average_ = 0; ///< which of the load averages is sampled; a copy, as `armed_`
    std::jthread thread_;
};

/// An instrument with two channels that every machine has: its load, and by how much a thread wakes too late.
class LoadMeter final : public ko::KeptInstrument {
public:
    explicit LoadMeter(const ko::DeviceOptions& options);
    ko::Acquisition* acquisition() override { return &acquisition_; }

private:
    LoadAcquisition acquisition_{held()};
};
