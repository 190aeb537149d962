#pragma once

#include "modules/sigrok/ConfigText.h"
#include "modules/sigrok/Library.h"

namespace ko::sigrok {

/// Channels as the host numbers them. Group g and channel c have the address "g+1:c".
struct ChannelGroup {
    std::string name;
    std::vector<sr_channel*> channels;
};

/// A device that is open while this object lives. Members that call it fail with a `Failure`.
class Device {
public:
    Device(std::shared_ptr<Library> library, const DeviceAddress& address);
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    [[nodiscard]] sr_context* context() const { return library_->context(); }
    [[nodiscard]] sr_dev_inst* instance() const { return instance_; }
    [[nodiscard]] std::chrono::milliseconds stopTime() const { return library_->stopTime; }
    [[nodiscard]] std::string title() const { return titleOf(instance_); }

    /// Each channel once, in the device's first group with it; channels without a group by their kind.
    [[nodiscard]] const std::vector<ChannelGroup>& groups() const { return groups_; }
    /// The device's own groups, which can share channels, for settings.
    [[nodiscard]] std::vector<sr_channel_group*> settingGroups() const;

    /// Whether the driver is one for devices of this kind (`SR_CONF_OSCILLOSCOPE`).
    [[nodiscard]] bool isA(std::uint32_t kind) const;
    /// The keys of the device, or of one of its groups.
    [[nodiscard]] std::vector<std::uint32_t> keys(sr_channel_group* group = nullptr) const;
    /// `capability` is an `sr_configcap`.
    [[nodiscard]] bool can(std::uint32_t capability, std::uint32_t key, sr_channel_group* group = nullptr) const;

    /// Null if the device has no value at present.
    [[nodiscard]] Variant value(std::uint32_t key, sr_channel_group* group = nullptr) const;
    /// The value as a whole number; none if it is no such number.
    [[nodiscard]] std::optional<std::uint64_t> number(std::uint32_t key) const;
    [[nodiscard]] Variant list(std::uint32_t key, sr_channel_group* group = nullptr) const;
    void set(std::uint32_t key, GVariant* value, const std::string& doing, sr_channel_group* group = nullptr);
    /// Sets a number, unless it is fixed, and reads it back if the device can. `what` and `unit` are for the failure if
    /// it has another one.
    void setNumber(std::uint32_t key, std::uint64_t value, const std::string& what, const std::string& unit);
    void enable(sr_channel* channel, bool isEnabled);
    void commit();

private:
    using Reading = int (*)(const sr_dev_driver*, const sr_dev_inst*, const sr_channel_group*, std::uint32_t,
                            GVariant**);
    [[nodiscard]] Variant read(Reading reading, std::uint32_t key, sr_channel_group* group) const;

    std::shared_ptr<Library> library_;
    sr_dev_inst* instance_;
    sr_dev_driver* driver_;
    std::vector<ChannelGroup> groups_;
};

} // namespace ko::sigrok
