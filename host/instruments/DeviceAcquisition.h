#pragma once

#include "host/instruments/Acquisition.h"

#include <atomic>
#include <functional>
#include <memory>

namespace ko {

/// Passes orders to the acquisition of a device, and what it delivers to the sink. Whatever the module throws becomes a
/// `Failure`, and blocks that break the contract end in a failure, not in the recording.
class DeviceAcquisition final : public Acquisition {
public:
    /// The acquiring side of the open device; fails with a `Failure` if there is none.
    using Find = std::function<Acquisition&()>;

    /// `find` is called for each `arm`, `present` for `settingsToArm`.
    DeviceAcquisition(Find find, std::function<ArmedSettings()> present);
    ~DeviceAcquisition() override;
    DeviceAcquisition(const DeviceAcquisition&) = delete;
    DeviceAcquisition& operator=(const DeviceAcquisition&) = delete;

    [[nodiscard]] ArmedSettings settingsToArm() const override { return present_(); }
    ArmedSettings arm() override;
    void start(const AcquisitionOrder& order, BlockSink& sink) override;
    void stop() override;

    /// Between `arm` and `stop`.
    [[nodiscard]] bool isInUse() const { return inUse_ != nullptr; }
    /// Whether the device could not be armed, started or stopped, so that it has to be opened again.
    [[nodiscard]] bool isLost() const { return isLost_; }

private:
    class Guard;

    ArmedSettings armed();

    Find find_;
    std::function<ArmedSettings()> present_;
    std::atomic<Acquisition*> inUse_ = nullptr;
    std::atomic<bool> isLost_ = false;
    std::atomic<bool> hasFailed_ = false; ///< the last acquisition, so that the device may be gone
    std::size_t channels_ = 0;
    std::unique_ptr<Guard> guard_;
};

} // namespace ko
