#include "modules/sigrok/Options.h"

#include <algorithm>
#include <array>

namespace ko::sigrok {

namespace {

constexpr std::array<std::uint32_t, 15> notOffered{
    SR_CONF_SAMPLERATE,   SR_CONF_CAPTURE_RATIO, SR_CONF_TRIGGER_MATCH, SR_CONF_LIMIT_MSEC, SR_CONF_LIMIT_SAMPLES,
    SR_CONF_LIMIT_FRAMES, SR_CONF_CONTINUOUS,    SR_CONF_CONN,          SR_CONF_SERIALCOMM, SR_CONF_SESSIONFILE,
    SR_CONF_CAPTUREFILE,  SR_CONF_POWER_OFF,     SR_CONF_DATALOG,       SR_CONF_TEST_MODE,  SR_CONF_ENABLED};

bool isOffered(const Device& device, std::uint32_t key)
{
    const bool changesTimes = key == SR_CONF_AVERAGING || key == SR_CONF_AVG_SAMPLES;
    if (changesTimes && device.can(SR_CONF_SET, SR_CONF_SAMPLERATE))
        return false;
    return std::find(notOffered.begin(), notOffered.end(), key) == notOffered.end();
}

bool isWithin(const sr_channel_group* part, const sr_channel_group* whole)
{
    for (const GSList* it = part->channels; it; it = it->next)
        if (!g_slist_find(whole->channels, it->data))
            return false;
    return g_slist_length(part->channels) < g_slist_length(whole->channels);
}

/// Whether a smaller group has the same key, so that this group's value would be another name for several.
bool isSetInParts(const Device& device, std::uint32_t key, const sr_channel_group* group)
{
    const auto groups = device.settingGroups();
    return std::any_of(groups.begin(), groups.end(), [&](sr_channel_group* part) {
        return isWithin(part, group) && device.can(SR_CONF_SET, key, part);
    });
}

} // namespace

Options::Options(Device& device) : device_(device)
{
    for (const std::uint32_t key : device.keys())
        add(key, nullptr);
    for (sr_channel_group* const group : device.settingGroups())
        for (const std::uint32_t key : device.keys(group))
            if (!isSetInParts(device, key, group))
                add(key, group);
}

void Options::add(std::uint32_t key, sr_channel_group* group)
{
    const sr_key_info* const info = sr_key_info_get(SR_KEY_CONFIG, key);
    if (!info || !info->id || !isOffered(device_, key) || !device_.can(SR_CONF_SET, key, group))
        return;
    Option option{info->id, key, group, info->datatype, {}};
    if (group)
        option.name += " " + utf8(group->name);
    if (device_.can(SR_CONF_GET, key, group)) {
        const Variant value = device_.value(key, group);
        if (!value || !textOf(value.get(), info->datatype))
            return;
    }
    options_.push_back(std::move(option));
}

std::string Options::textOfPresent(const Option& option) const
{
    const Variant value = device_.value(option.key, option.group);
    return value ? textOf(value.get(), option.datatype).value_or("") : option.given;
}

DeviceOptions Options::present() const
{
    DeviceOptions present;
    for (const Option& option : options_)
        present.emplace(option.name, textOfPresent(option));
    return present;
}

Options::Option& Options::named(const std::string& name)
{
    std::vector<std::string> names;
    for (Option& option : options_) {
        if (option.name == name)
            return option;
        names.push_back(option.name);
    }
    throw Failure(failure::unspecified, "has no option \"" + name + "\"; offered: " + joined(names));
}

Variant Options::valueFor(const Option& option, const std::string& text) const
{
    const Variant list = device_.list(option.key, option.group);
    const auto choices = choicesIn(list.get(), option.datatype);
    const auto chosen = std::find(choices.begin(), choices.end(), text);
    Variant value = valueOf(text, option.datatype);
    if (value && (choices.empty() || chosen != choices.end()))
        return value;
    throw Failure(failure::unspecified, "option \"" + option.name + "\": does not take \"" + text + "\"" +
                                            (choices.empty() ? "" : "; offered: " + joined(choices)));
}

void Options::set(Option& option, const std::string& text)
{
    const std::string doing = "option \"" + option.name + "\": " + text;
    if (textOfPresent(option) == text)
        return;
    const Variant value = valueFor(option, text);
    device_.set(option.key, value.get(), doing, option.group);
    option.given = text;
    const Variant kept = device_.value(option.key, option.group);
    if (kept && !isSame(kept.get(), value.get(), option.datatype))
        throw Failure(failure::unspecified,
                      doing + " set, " + textOf(kept.get(), option.datatype).value_or("") + " kept");
}

void Options::set(const DeviceOptions& wanted)
{
    for (const auto& [name, text] : wanted)
        set(named(name), text);
}

} // namespace ko::sigrok
