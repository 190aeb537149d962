#pragma once

#include "host/instruments/DeviceAcquisition.h"
#include "host/instruments/DeviceSource.h"
#include "host/instruments/KeptInstrument.h"

#include <functional>

namespace ko {

/// An instrument of a set-up whose device is opened by a driver module. While the device is missing it keeps the
/// settings of the set-up and stands in for the device's views, so that the page asks for their values and learns the
/// trouble. The settings of the set-up are set on the device each time it is opened, channels matched by address.
class DeviceInstrument final : public Instrument {
public:
    /// The device is closed at first. Without a source it stays so.
    DeviceInstrument(InstrumentSettings settings, std::shared_ptr<DeviceSource> source);

    /// Why the device is closed; empty if it is open.
    [[nodiscard]] const std::string& trouble() const { return trouble_; }
    /// Opens the device if it is closed.
    void open();
    /// Closes the device and opens it again. Does nothing while the device is armed or acquires.
    void reopen();
    /// Closes the device. Does nothing while the device is armed or acquires.
    void close();
    /// How often the device has been opened.
    [[nodiscard]] int timesOpened() const { return timesOpened_; }

    /// Called when the device has been opened or closed, so that `driver` has other views.
    std::function<void()> exchanged;

    [[nodiscard]] Driver& driver() override;
    [[nodiscard]] const InstrumentSettings& held() const override;
    /// If the options differ, the device is opened again; if it does not take them, it keeps those that it had.
    void restore(const InstrumentSettings& settings) override;
    [[nodiscard]] Acquisition* acquisition() override { return &acquisition_; }

private:
    void attempt();
    /// Closes the device and keeps these settings.
    void keep(InstrumentSettings settings);
    /// The acquiring side of the open device, after opening it again if its last acquisition has failed. Fails with the
    /// trouble.
    Acquisition& armable();
    [[nodiscard]] ArmedSettings settingsToArm();
    [[nodiscard]] InstrumentSettings withHostsPart(InstrumentSettings settings) const;

    std::shared_ptr<DeviceSource> source_;
    std::string trouble_;
    std::unique_ptr<Instrument> device_; ///< null while it is closed
    std::optional<KeptInstrument> standIn_;
    mutable InstrumentSettings held_;
    mutable std::optional<InstrumentSettings> seen_; ///< what the device held when `held_` was made of it
    bool isWanted_ = false;                          ///< since `open`, until `close`
    int timesOpened_ = 0;
    DeviceAcquisition acquisition_;
};

/// Returns what the device offers with the values that the set-up keeps. Fails with a `Failure` that names a channel, a
/// trigger parameter or a view of the set-up that the device does not have.
InstrumentSettings withValues(InstrumentSettings offered, const InstrumentSettings& kept);

} // namespace ko
