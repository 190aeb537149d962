#pragma once

#include "modules/sigrok/Intake.h"
#include "modules/sigrok/LentSink.h"
#include "modules/sigrok/Session.h"
#include "modules/sigrok/Units.h"

namespace ko::sigrok {

/// What a device is armed with.
struct ArmedDevice {
    ArmedSettings settings;
    std::vector<sr_channel*> channels; ///< of the settings' channels
    std::optional<Session::Trigger> trigger;
};

/// One acquisition: takes the packets of a session, and passes their samples on.
class AcquisitionRun final : private SessionClient {
public:
    /// Fails with a `Failure`. The device stays open while the run lives. `units` gets the units that it measures in.
    AcquisitionRun(std::shared_ptr<Device> device, ArmedDevice armed, const AcquisitionOrder& order, BlockSink& sink,
                   std::shared_ptr<Units> units);
    ~AcquisitionRun() override = default;

    /// Begins to acquire; fails with a `Failure`, without a call to the sink.
    void start();
    /// Stops. Returns false if the device does not end within this time; then the sink is not called any more, and the
    /// destructor waits for the device.
    bool stopWithin(std::chrono::milliseconds time);

private:
    void take(const sr_datafeed_packet& packet) override;
    void tick() override;
    bool goesOn() override;
    void over(const SessionEnd& end) override;

    void takeLogic(const sr_datafeed_logic& logic);
    void takeAnalog(const sr_datafeed_analog& analog);
    void takeUnit(std::size_t place, const sr_datafeed_analog& analog);
    void takeMeta(const sr_datafeed_meta& meta) const;
    void takeFrame();
    void stopWhenComplete();
    [[nodiscard]] double now() const;
    [[nodiscard]] std::optional<std::size_t> placeOf(const void* channel) const;
    [[nodiscard]] std::string reasonOf(const SessionEnd& end) const;

    std::shared_ptr<Device> device_;
    ArmedDevice armed_;
    AcquisitionOrder order_;
    LentSink sink_;
    std::shared_ptr<Units> units_;
    std::unique_ptr<Intake> intake_;
    std::vector<float> samples_; ///< of one channel, of a packet
    std::vector<float> all_;     ///< of all channels of a packet
    std::vector<std::optional<sr_unit>> measured_;
    int frames_ = 0;
    double begun_ = 0.0; ///< when the device was started
    Session session_;    ///< the last member: its thread uses the others
};

} // namespace ko::sigrok
