#pragma once

#include "host/instruments/Acquisition.h"
#include "host/instruments/Signal.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace ko {

/// The acquisition of a simulated instrument: it computes its samples on a thread of its own, in real time or as fast
/// as they are taken.
class SimulatedAcquisition final : public Acquisition {
public:
    /// `settings` are those of the instrument, with a timebase, and must outlive the acquisition.
    explicit SimulatedAcquisition(const InstrumentSettings& settings) : held_(settings) {}
    ~SimulatedAcquisition() override { SimulatedAcquisition::stop(); }
    SimulatedAcquisition(const SimulatedAcquisition&) = delete;
    SimulatedAcquisition& operator=(const SimulatedAcquisition&) = delete;

    [[nodiscard]] ArmedSettings settingsToArm() const override;
    ArmedSettings arm() override;
    void start(const AcquisitionOrder& order, BlockSink& sink) override;
    void stop() override;
    [[nodiscard]] bool isRealTime() const override { return false; }

private:
    class Run;

    /// A copy, so that the thread shares nothing with the driver.
    struct Armed {
        ArmedSettings settings;
        std::vector<Signal> measured; ///< one for each channel
        std::optional<Signal> trigger;
    };

    const InstrumentSettings& held_;
    std::optional<Armed> armed_;
    std::jthread thread_;
};

} // namespace ko
