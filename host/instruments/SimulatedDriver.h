#pragma once

#include "host/instruments/SimulatedViews.h"

#include <memory>
#include <vector>

namespace ko {

/// An instrument driver without an instrument: it holds its settings, answers from them, keeps of a requested value
/// what its rules say, and fails where it is told to. Its measurement figures are computed unless fixed.
class SimulatedDriver final : public Driver, private StaticMeasurement, private DynamicMeasurement {
public:
    /// Failing operations that are none are left out.
    explicit SimulatedDriver(InstrumentSettings settings);
    SimulatedDriver(const SimulatedDriver&) = delete;
    SimulatedDriver& operator=(const SimulatedDriver&) = delete;

    /// The settings with the present values.
    [[nodiscard]] InstrumentSettings settings() const;
    [[nodiscard]] const std::string& name() const { return settings_.name; }
    /// What it holds, seen without a call: nothing is counted, told or made to fail. `failing` is as it was at first.
    [[nodiscard]] const InstrumentSettings& held() const { return settings_; }
    /// What the owner of the instrument does, behind the page's back. Failure 9 for a channel that there is not.
    void enableChannel(std::int32_t group, std::int32_t channel, bool enabled);
    /// Where calls are counted, observed and made to fail.
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
};

using SimulatedDrivers = std::vector<std::shared_ptr<SimulatedDriver>>;

} // namespace ko
