#pragma once

#include "host/instruments/Instrument.h"
#include "host/instruments/SimulatedAcquisition.h"
#include "host/instruments/SimulatedViews.h"

#include <memory>
#include <vector>

namespace ko {

/// An instrument driver without an instrument. Reads return its settings, writes round the requested value by its
/// rules, and calls fail as planned in `calls()`. The measurement figures are computed unless the settings fix them.
class SimulatedDriver final : public Driver, public Instrument, private StaticMeasurement, private DynamicMeasurement {
public:
    /// Invalid operation names in `settings.failing` are ignored.
    explicit SimulatedDriver(InstrumentSettings settings);
    SimulatedDriver(const SimulatedDriver&) = delete;
    SimulatedDriver& operator=(const SimulatedDriver&) = delete;

    /// Returns the settings with the present values and the planned failures.
    [[nodiscard]] InstrumentSettings settings() const override;
    /// Nothing is rounded. Settings that operations write are written by calls, which are counted, observed and fail as
    /// planned; planned failures stay. Fails if a call fails, or if the instrument then had other views.
    void restore(const InstrumentSettings& settings) override;
    [[nodiscard]] const std::string& name() const override { return settings_.name; }
    [[nodiscard]] Driver& driver() override { return *this; }
    [[nodiscard]] Acquisition* acquisition() override { return acquisition_ ? &*acquisition_ : nullptr; }
    /// Returns what the driver holds without a call: nothing is counted, observed or made to fail. `failing` has its
    /// initial value.
    [[nodiscard]] const InstrumentSettings& held() const { return settings_; }
    /// Enables or disables a channel, as the instrument's owner does without notifying the page. Fails with 9 for a
    /// channel that does not exist.
    void enableChannel(std::int32_t group, std::int32_t channel, bool enabled);
    /// Counts calls, notifies the observer and makes calls fail.
    [[nodiscard]] CallGate& calls() { return calls_; }
    [[nodiscard]] const CallGate& calls() const { return calls_; }

    std::int32_t GroupCount() override;
    std::int32_t ChannelCount(std::int32_t group) override;
    Value ChannelAttribute(std::int32_t group, std::int32_t channel, std::int32_t attribute) override;
    std::int32_t MeasurementMode() override;
    std::int32_t SamplingMode() override;
    std::string DriverName(std::int32_t form) override;
    std::string GroupName(std::int32_t group) override;

    Timebase* queryTimebase() override { return timebase_ ? &*timebase_ : nullptr; }
    TriggerParameters* queryTriggerParameters() override { return parameters_ ? &*parameters_ : nullptr; }
    TriggerLines* queryTriggerLines() override { return lines_ ? &*lines_ : nullptr; }
    StaticMeasurement* queryStaticMeasurement() override { return this; }
    DynamicMeasurement* queryDynamicMeasurement() override { return this; }

private:
    std::int32_t NumberOfScans() override;
    double DynamicBytes() override;

    CallGate calls_;
    InstrumentSettings settings_;
    std::optional<SimulatedTimebase> timebase_;
    std::optional<SimulatedTriggerParameters> parameters_;
    std::optional<SimulatedTriggerLines> lines_;
    std::optional<SimulatedAcquisition> acquisition_;
};

using SimulatedDrivers = std::vector<std::shared_ptr<SimulatedDriver>>;

} // namespace ko
