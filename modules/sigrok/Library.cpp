#include "modules/sigrok/Library.h"

#include "modules/sigrok/Attempt.h"
#include "modules/sigrok/ConfigText.h"
#include "modules/sigrok/KnownLeaks.h"

#include <algorithm>

namespace ko::sigrok {

namespace {

/// The options of a search, which must outlive it.
class ScanOptions {
public:
    ScanOptions(const sr_dev_driver* driver, const DeviceAddress& address)
    {
        const KeyArray keys(sr_driver_scan_options_list(driver));
        for (const auto& [name, text] : address.options)
            add(keys, address.driver, name, text);
        for (sr_config& config : configs_)
            list_ = g_slist_append(list_, &config);
    }
    ~ScanOptions() { g_slist_free(list_); }
    ScanOptions(const ScanOptions&) = delete;
    ScanOptions& operator=(const ScanOptions&) = delete;

    [[nodiscard]] GSList* list() const { return list_; }

private:
    void add(const KeyArray& keys, const std::string& driver, const std::string& name, const std::string& text)
    {
        const sr_key_info* const info = sr_key_info_name_get(SR_KEY_CONFIG, name.c_str());
        const auto known = keysIn(keys);
        if (!info || std::find(known.begin(), known.end(), info->key) == known.end())
            throw Failure(failure::unspecified, driver + " has no option \"" + name + "\"; offered: " + namesOf(known));
        values_.push_back(valueOf(text, info->datatype));
        if (!values_.back())
            throw Failure(failure::unspecified, driver + " does not take \"" + text + "\" as " + name);
        configs_.push_back({info->key, values_.back().get()});
    }

    static std::string namesOf(const std::vector<std::uint32_t>& keys)
    {
        std::vector<std::string> names(keys.size());
        std::transform(keys.begin(), keys.end(), names.begin(), keyName);
        return joined(names);
    }

    std::vector<Variant> values_;
    std::vector<sr_config> configs_;
    GSList* list_ = nullptr;
};

bool takesConnection(const sr_dev_driver* driver)
{
    const auto keys = keysIn(KeyArray(sr_driver_scan_options_list(driver)));
    return std::find(keys.begin(), keys.end(), SR_CONF_CONN) != keys.end();
}

/// How `Library::open` finds one of several devices again.
std::string addressOf(const sr_dev_driver* driver, const sr_dev_inst* device)
{
    const std::string connection = utf8(sr_dev_inst_connid_get(device));
    return driver->name + (connection.empty() || !takesConnection(driver) ? "" : ":conn=" + connection);
}

[[noreturn]] void refuseSeveral(const sr_dev_driver* driver, GSList* found)
{
    std::vector<std::string> addresses;
    for (const GSList* it = found; it; it = it->next)
        addresses.push_back(addressOf(driver, static_cast<const sr_dev_inst*>(it->data)));
    throw Failure(failure::unspecified, "several devices answer: " + joined(addresses));
}

} // namespace

std::string titleOf(const sr_dev_inst* device)
{
    std::string title;
    const std::string serial = utf8(sr_dev_inst_sernum_get(device));
    for (const std::string& part :
         {utf8(sr_dev_inst_vendor_get(device)), utf8(sr_dev_inst_model_get(device)),
          utf8(sr_dev_inst_version_get(device)), serial.empty() ? std::string() : "(" + serial + ")"})
        if (!part.empty())
            title += (title.empty() ? "" : " ") + part;
    return title;
}

Library::Library()
{
    collectErrors();
    attempt("libsigrok", [&] { return sr_init(&context_); });
}

Library::~Library()
{
    sr_exit(context_);
}

sr_dev_driver* Library::driver(const std::string& name) const
{
    sr_dev_driver** it = sr_driver_list(context_);
    for (; it && *it; ++it)
        if (name == (*it)->name)
            return *it;
    throw Failure(failure::unspecified, "libsigrok has no driver \"" + name + "\"");
}

/// A driver keeps each device that it has found until it is cleared, which closes its devices.
Library::DeviceList Library::scan(sr_dev_driver* driver, const DeviceAddress& address)
{
    if (!initialized_.contains(driver)) {
        attempt(std::string("driver ") + driver->name, [&] { return sr_driver_init(context_, driver); });
        initialized_.insert(driver);
    }
    const ScanOptions options(driver, address);
    if (open_[driver] == 0)
        sr_dev_clear(driver);
    const KnownLeaks ignored;
    return DeviceList(sr_driver_scan(driver, options.list()));
}

std::vector<FoundDevice> Library::devices()
{
    const std::lock_guard lock(mutex_);
    std::vector<FoundDevice> devices;
    for (sr_dev_driver** it = sr_driver_list(context_); it && *it; ++it)
        try {
            const DeviceList found = scan(*it, {(*it)->name, {}});
            for (const GSList* each = found.get(); each; each = each->next) {
                const auto* const device = static_cast<const sr_dev_inst*>(each->data);
                // A connection may change when a device is plugged in again, or gets its firmware.
                const std::string address = found->next ? addressOf(*it, device) : (*it)->name;
                devices.push_back({address, titleOf(device)});
            }
        } catch (const Failure&) {
            // A driver that needs what this machine lacks has no devices here.
            continue;
        }
    return devices;
}

sr_dev_inst* Library::open(const DeviceAddress& address)
{
    const std::lock_guard lock(mutex_);
    sr_dev_driver* const wanted = driver(address.driver);
    const DeviceList found = scan(wanted, address);
    if (!found)
        throw Failure(failure::unspecified, "no such device");
    if (found->next)
        refuseSeveral(wanted, found.get());
    auto* const device = static_cast<sr_dev_inst*>(found->data);
    attempt("open", [&] { return sr_dev_open(device); });
    ++open_[wanted];
    return device;
}

void Library::close(sr_dev_inst* device)
{
    const std::lock_guard lock(mutex_);
    sr_dev_close(device);
    --open_[sr_dev_inst_driver_get(device)];
}

} // namespace ko::sigrok
