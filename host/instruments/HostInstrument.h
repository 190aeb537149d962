#pragma once

#include "host/instruments/DeviceInstrument.h"
#include "host/instruments/GatedViews.h"
#include "host/instruments/Instrument.h"

#include <memory>
#include <vector>

namespace ko {

/// An instrument of a set-up as the host hands it to the page: each call to its driver passes `calls()`, where it is
/// counted, observed, and made to fail as planned. While the device of a driver module is missing, every call fails
/// with the reason.
class HostInstrument final : public Instrument, public Driver, private StaticMeasurement, private DynamicMeasurement {
public:
    /// The failures that the settings plan are planned; invalid operation names in them are ignored.
    explicit HostInstrument(std::unique_ptr<Instrument> instrument);
    HostInstrument(const HostInstrument&) = delete;
    HostInstrument& operator=(const HostInstrument&) = delete;

    [[nodiscard]] Driver& driver() override { return *this; }
    /// Returns what the instrument holds; nothing is counted, observed or made to fail. `failing` has its initial
    /// value.
    [[nodiscard]] const InstrumentSettings& held() const override { return instrument_->held(); }
    /// Returns the settings with the present values and the planned failures.
    [[nodiscard]] InstrumentSettings settings() const;
    /// Nothing is rounded. Settings that operations write are written by calls, which are counted, observed and fail as
    /// planned; planned failures stay. Fails if a call fails, or if the instrument then had other views.
    void restore(const InstrumentSettings& settings) override;
    [[nodiscard]] Acquisition* acquisition() override { return instrument_->acquisition(); }

    /// Enables or disables a channel, as the instrument's owner does without notifying the page. Fails with 9 for a
    /// channel that does not exist.
    void enableChannel(std::int32_t group, std::int32_t channel, bool enabled);
    /// Counts calls, notifies the observer and makes calls fail.
    [[nodiscard]] CallGate& calls() { return calls_; }
    [[nodiscard]] const CallGate& calls() const { return calls_; }

    /// Opens the device, if the instrument has one and it is not open. If that fails, the calls fail until the next
    /// attempt succeeds.
    void openDevice();
    /// Opens the device again, if the instrument has one. Returns whether that has succeeded.
    bool reopenDevice();
    /// Closes the device, if the instrument has one, so that another instrument can open it. The settings stay.
    void closeDevice();
    /// How often the device has been opened, by these members or to be armed.
    [[nodiscard]] int timesOpened() const { return device_ ? device_->timesOpened() : 0; }
    /// Why the device is closed; empty if it is open, and for an instrument without one.
    [[nodiscard]] std::string trouble() const { return device_ ? device_->trouble() : std::string(); }

    std::int32_t GroupCount() override;
    std::int32_t ChannelCount(std::int32_t group) override;
    Value ChannelAttribute(std::int32_t group, std::int32_t channel, std::int32_t attribute) override;
    std::int32_t MeasurementMode() override;
    std::int32_t SamplingMode() override;
    std::string DriverName(std::int32_t form) override;
    std::string GroupName(std::int32_t group) override;

    Timebase* queryTimebase() override;
    TriggerParameters* queryTriggerParameters() override;
    TriggerLines* queryTriggerLines() override;
    StaticMeasurement* queryStaticMeasurement() override;
    DynamicMeasurement* queryDynamicMeasurement() override;

private:
    std::int32_t NumberOfScans() override;
    double DynamicBytes() override;
    void take(const InstrumentSettings& settings);
    void findViews();

    CallGate calls_;
    std::unique_ptr<Instrument> instrument_;
    DeviceInstrument* device_ = nullptr; ///< the same, if it is a device
    GatedTimebase timebase_{calls_};
    GatedTriggerParameters parameters_{calls_};
    GatedTriggerLines lines_{calls_};
};

using HostInstruments = std::vector<std::shared_ptr<HostInstrument>>;

/// How often the devices of all these instruments have been opened.
int timesOpened(const HostInstruments& instruments);

} // namespace ko
