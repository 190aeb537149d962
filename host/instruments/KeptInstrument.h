#pragma once

#include "host/instruments/Instrument.h"
#include "host/instruments/KeptViews.h"

#include <optional>

namespace ko {

/// An instrument that keeps its settings in memory: its driver's reads return them, writes round the requested value by
/// the rules of the settings. The measurement figures are computed unless the settings fix them. It has those views
/// that the settings have. Derived classes add the acquisition.
class KeptInstrument : public Instrument, private Driver, private StaticMeasurement, private DynamicMeasurement {
public:
    explicit KeptInstrument(InstrumentSettings settings);
    KeptInstrument(const KeptInstrument&) = delete;
    KeptInstrument& operator=(const KeptInstrument&) = delete;

    [[nodiscard]] Driver& driver() override { return *this; }
    [[nodiscard]] const InstrumentSettings& held() const override { return settings_; }
    /// Keeps the planned failures. Fails with 5 if the settings have other views.
    void restore(const InstrumentSettings& settings) override;
    [[nodiscard]] Acquisition* acquisition() override { return nullptr; }

protected:
    /// Returns the sample period that is kept for a requested one, in seconds. Default: by the rule of the settings.
    [[nodiscard]] virtual double keptSamplePeriod(double requested);

private:
    std::int32_t GroupCount() override;
    std::int32_t ChannelCount(std::int32_t group) override;
    Value ChannelAttribute(std::int32_t group, std::int32_t channel, std::int32_t attribute) override;
    std::int32_t MeasurementMode() override { return settings_.measurementMode; }
    std::int32_t SamplingMode() override { return settings_.samplingMode; }
    std::string DriverName(std::int32_t /*form*/) override { return settings_.name; }
    std::string GroupName(std::int32_t group) override;

    Timebase* queryTimebase() override { return timebase_ ? &*timebase_ : nullptr; }
    TriggerParameters* queryTriggerParameters() override { return parameters_ ? &*parameters_ : nullptr; }
    TriggerLines* queryTriggerLines() override { return lines_ ? &*lines_ : nullptr; }
    StaticMeasurement* queryStaticMeasurement() override { return this; }
    DynamicMeasurement* queryDynamicMeasurement() override { return this; }

    std::int32_t NumberOfScans() override;
    double DynamicBytes() override;

    InstrumentSettings settings_;
    std::optional<KeptTimebase> timebase_;
    std::optional<KeptTriggerParameters> parameters_;
    std::optional<KeptTriggerLines> lines_;
};

/// Returns what an instrument with these settings acquires by. Fails with a `Failure` without a timebase.
ArmedSettings armedSettings(const InstrumentSettings& settings);

/// Whether both have the same views: a timebase, trigger lines, trigger parameters.
bool haveSameViews(const InstrumentSettings& one, const InstrumentSettings& other);

/// Calls `visit` with each channel, its group's and its own index.
template <class Settings, class Visit> void forEachChannel(Settings& instrument, const Visit& visit)
{
    for (std::size_t group = 0; group < instrument.groups.size(); ++group) {
        auto& channels = instrument.groups[group].channels;
        for (std::size_t channel = 0; channel < channels.size(); ++channel)
            visit(channels[channel], static_cast<std::int32_t>(group), static_cast<std::int32_t>(channel));
    }
}

} // namespace ko
