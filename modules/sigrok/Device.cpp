#include "modules/sigrok/Device.h"

#include "modules/sigrok/Attempt.h"

#include <algorithm>

namespace ko::sigrok {

namespace {

template <class T> std::vector<T*> elementsOf(const GSList* list)
{
    std::vector<T*> elements;
    for (; list; list = list->next)
        elements.push_back(static_cast<T*>(list->data));
    return elements;
}

std::vector<ChannelGroup> groupsOf(const sr_dev_inst* device)
{
    std::vector<sr_channel*> left = elementsOf<sr_channel>(sr_dev_inst_channels_get(device));
    std::vector<ChannelGroup> groups;
    const auto take = [&](const std::string& name, const std::vector<sr_channel*>& wanted) {
        ChannelGroup group{name, {}};
        for (sr_channel* const channel : wanted)
            if (std::erase(left, channel) != 0)
                group.channels.push_back(channel);
        if (!group.channels.empty())
            groups.push_back(std::move(group));
    };
    for (const auto* group : elementsOf<sr_channel_group>(sr_dev_inst_channel_groups_get(device)))
        take(utf8(group->name), elementsOf<sr_channel>(group->channels));
    std::vector<sr_channel*> logic;
    std::copy_if(left.begin(), left.end(), std::back_inserter(logic),
                 [](const sr_channel* channel) { return channel->type == SR_CHANNEL_LOGIC; });
    take("Logic", logic);
    take("Analog", std::vector(left));
    return groups;
}

} // namespace

Device::Device(std::shared_ptr<Library> library, const DeviceAddress& address)
    : library_(std::move(library)), instance_(library_->open(address)), driver_(sr_dev_inst_driver_get(instance_)),
      groups_(groupsOf(instance_))
{
}

Device::~Device()
{
    library_->close(instance_);
}

std::vector<sr_channel_group*> Device::settingGroups() const
{
    return elementsOf<sr_channel_group>(sr_dev_inst_channel_groups_get(instance_));
}

bool Device::isA(std::uint32_t kind) const
{
    const auto kinds = keysIn(KeyArray(sr_dev_options(driver_, nullptr, nullptr)));
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

std::vector<std::uint32_t> Device::keys(sr_channel_group* group) const
{
    return keysIn(KeyArray(sr_dev_options(driver_, instance_, group)));
}

bool Device::can(std::uint32_t capability, std::uint32_t key, sr_channel_group* group) const
{
    const int all = sr_dev_config_capabilities_list(instance_, group, static_cast<int>(key));
    return (static_cast<std::uint32_t>(all) & capability) != 0;
}

Variant Device::read(Reading reading, std::uint32_t key, sr_channel_group* group) const
{
    GVariant* value = nullptr;
    forgetErrors();
    const int code = reading(driver_, instance_, group, key, &value);
    if (code == SR_ERR_NA || code == SR_ERR_CHANNEL_GROUP)
        return nullptr;
    if (code != SR_OK)
        failWith(code, "reading " + keyName(key));
    return owned(value);
}

Variant Device::value(std::uint32_t key, sr_channel_group* group) const
{
    return can(SR_CONF_GET, key, group) ? read(sr_config_get, key, group) : nullptr;
}

std::optional<std::uint64_t> Device::number(std::uint32_t key) const
{
    const Variant present = value(key);
    const bool isNumber = present && g_variant_is_of_type(present.get(), G_VARIANT_TYPE_UINT64);
    return isNumber ? std::optional(g_variant_get_uint64(present.get())) : std::nullopt;
}

Variant Device::list(std::uint32_t key, sr_channel_group* group) const
{
    return can(SR_CONF_LIST, key, group) ? read(sr_config_list, key, group) : nullptr;
}

void Device::set(std::uint32_t key, GVariant* value, const std::string& doing, sr_channel_group* group)
{
    attempt(doing, [&] { return sr_config_set(instance_, group, key, value); });
}

void Device::setNumber(std::uint32_t key, std::uint64_t value, const std::string& what, const std::string& unit)
{
    const auto withUnit = [&](std::uint64_t it) { return std::to_string(it) + unit; };
    if (can(SR_CONF_SET, key))
        set(key, owned(g_variant_new_uint64(value)).get(), what + ": " + withUnit(value));
    if (const auto kept = number(key); kept && *kept != value)
        throw Failure(failure::unspecified, what + ": " + withUnit(value) + " set, " + withUnit(*kept) + " kept");
}

void Device::enable(sr_channel* channel, bool isEnabled)
{
    const std::string doing = (isEnabled ? "enabling channel " : "disabling channel ") + utf8(channel->name);
    attempt(doing, [&] { return sr_dev_channel_enable(channel, isEnabled ? TRUE : FALSE); });
}

void Device::commit()
{
    attempt("settings", [&] { return sr_config_commit(instance_); });
}

} // namespace ko::sigrok
