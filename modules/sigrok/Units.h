#pragma once

#include <libsigrok/libsigrok.h>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace ko::sigrok {

/// libsigrok's text of a unit: "V"; empty for values without one. Fails with a `Failure`.
std::string unitText(sr_unit unit);

/// The units in which the channels of a device have measured last, which a device names with its samples. Can be
/// called on any thread.
class Units {
public:
    /// None before the channel has measured.
    [[nodiscard]] std::optional<std::string> of(const std::string& address) const
    {
        const std::lock_guard lock(mutex_);
        const auto found = units_.find(address);
        return found == units_.end() ? std::nullopt : std::optional(found->second);
    }

    void set(const std::string& address, const std::string& unit)
    {
        const std::lock_guard lock(mutex_);
        units_[address] = unit;
    }

private:
    mutable std::mutex mutex_;
    std::map<std::string, std::string> units_;
};

} // namespace ko::sigrok
