#pragma once

#include "host/modules/InstrumentModule.h"
#include "modules/sigrok/DeviceAddress.h"

#include <chrono>
#include <libsigrok/libsigrok.h>
#include <map>
#include <mutex>
#include <set>

namespace ko::sigrok {

/// libsigrok with its drivers, of which a process has one. Can be called on any thread.
class Library {
public:
    /// Fails with a `Failure`.
    Library();
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    [[nodiscard]] sr_context* context() const { return context_; }

    std::chrono::milliseconds stopTime{10000}; ///< how long it may take until a device has stopped

    /// Searches with all drivers; a driver that fails finds nothing. Takes seconds.
    std::vector<FoundDevice> devices();

    /// Opens the device, which the library owns, until `close`. Fails with a `Failure` that names what is not there.
    sr_dev_inst* open(const DeviceAddress& address);
    void close(sr_dev_inst* device);

private:
    struct ListFreer {
        void operator()(GSList* list) const { g_slist_free(list); }
    };
    using DeviceList = std::unique_ptr<GSList, ListFreer>;

    [[nodiscard]] sr_dev_driver* driver(const std::string& name) const;
    DeviceList scan(sr_dev_driver* driver, const DeviceAddress& address);

    std::mutex mutex_;
    sr_context* context_ = nullptr;
    std::set<const sr_dev_driver*> initialized_;
    std::map<const sr_dev_driver*, int> open_; ///< devices of each driver
};

/// What people call the device: vendor, model, version and serial number.
std::string titleOf(const sr_dev_inst* device);

} // namespace ko::sigrok
