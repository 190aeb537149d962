#include "host/setup/StepText.h"

#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "support/TextNumbers.h"

#include <algorithm>
#include <array>

namespace ko {

namespace {

namespace named = textNumber::history;
namespace host = textNumber::host;
namespace edit = textNumber::instrumentEdit;

std::string filledIn(std::string pattern, const std::vector<std::string>& arguments)
{
    std::string result;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const std::size_t number =
            pattern[i] == '%' && i + 1 < pattern.size() ? static_cast<std::size_t>(pattern[i + 1] - '1') : 9;
        if (number < arguments.size()) {
            result += arguments[number];
            ++i;
        } else {
            result += pattern[i];
        }
    }
    return result;
}

const std::string& nameOf(const ChannelSettings& channel)
{
    return channel.name.empty() ? channel.address : channel.name;
}

/// Collects the settings that differ, each described with its old and its new value.
class Differences {
public:
    explicit Differences(const StepWords& words) : words_(words) {}

    void timebase(const TimebaseSettings& before, const TimebaseSettings& after)
    {
        const auto rate = [&](double period) { return number(1.0 / period); };
        compare(named::sampleRate, before.samplePeriod.value, after.samplePeriod.value, rate);
        compare(host::blockSize, before.blockSize.value, after.blockSize.value,
                [&](double size) { return number(size); });
        compare(named::scanRate, before.scanPeriod.value, after.scanPeriod.value, rate);
        constexpr std::array starts{host::startImmediately, host::startAtTime, host::startOnTrigger};
        constexpr std::array stops{host::stopAfterDuration, host::stopAtTime};
        compare(host::startMode, before.startMode, after.startMode, [&](auto code) { return mode(code, starts); });
        compare(host::startTime, before.startTime.days, after.startTime.days,
                [&](double days) { return time({days}); });
        compare(host::stopMode, before.stopMode, after.stopMode, [&](auto code) { return mode(code, stops); });
        compare(host::duration, before.duration, after.duration,
                [&](float seconds) { return filledIn(text(host::seconds), {number(widen(seconds))}); });
    }

    void lines(const TriggerLineSettings& before, const TriggerLineSettings& after)
    {
        const auto line = [&](std::int32_t held) { return held < 0 ? text(named::none) : std::to_string(held + 1); };
        compare(host::startLine, before.startTriggerLine, after.startTriggerLine, line);
        compare(host::syncLine, before.scanTriggerLine, after.scanTriggerLine, line);
        compare(host::startInput, before.startTriggerInput, after.startTriggerInput, line);
        compare(host::syncInput, before.scanTriggerInput, after.scanTriggerInput, line);
    }

    void channels(const std::vector<GroupSettings>& before, const std::vector<GroupSettings>& after)
    {
        compare(named::triggerChannel, sourceOf(before), sourceOf(after), [](const std::string& name) { return name; });
        forEachChannel(before, after, [&](const ChannelSettings& was, const ChannelSettings& now) {
            compareNamed(nameOf(was), was.isEnabled(), now.isEnabled(),
                         [&](bool on) { return text(on ? host::yes : host::no); });
            for (std::size_t i = 0; i < std::min(was.triggerParameters.size(), now.triggerParameters.size()); ++i)
                compareNamed(was.triggerParameters[i].name, was.triggerParameters[i].value,
                             now.triggerParameters[i].value, [&](const Value& held) { return value(held); });
        });
    }

    [[nodiscard]] std::string joined() const
    {
        if (found_.empty())
            return {};
        return found_.size() == 1 ? found_[0] : filledIn(text(named::both), {found_[0], found_[1]});
    }

private:
    template <class T, class Shown> void compare(int name, const T& before, const T& after, Shown&& shown)
    {
        if (before != after)
            add(text(name), shown(before), shown(after));
    }
    template <class T, class Shown>
    void compareNamed(const std::string& name, const T& before, const T& after, Shown&& shown)
    {
        if (before != after)
            add(name, shown(before), shown(after));
    }
    void add(const std::string& name, const std::string& before, const std::string& after)
    {
        found_.push_back(filledIn(text(named::change), {name, before, after}));
    }

    template <class Visit>
    static void forEachChannel(const std::vector<GroupSettings>& before, const std::vector<GroupSettings>& after,
                               Visit&& visit)
    {
        for (std::size_t g = 0; g < std::min(before.size(), after.size()); ++g)
            for (std::size_t c = 0; c < std::min(before[g].channels.size(), after[g].channels.size()); ++c)
                visit(before[g].channels[c], after[g].channels[c]);
    }
    [[nodiscard]] std::string sourceOf(const std::vector<GroupSettings>& groups) const
    {
        for (const GroupSettings& group : groups)
            for (const ChannelSettings& channel : group.channels)
                if (channel.triggerSource)
                    return nameOf(channel);
        return text(named::none);
    }

    [[nodiscard]] std::string text(int name) const { return words_.text(name); }
    [[nodiscard]] std::string number(double value) const { return numberText(value, words_.locale()); }
    [[nodiscard]] std::string time(DateTime time) const
    {
        return isInValidYears(time) ? generalDate(time, words_.locale()) : number(time.days);
    }
    template <std::size_t count>
    [[nodiscard]] std::string mode(std::int32_t code, const std::array<int, count>& names) const
    {
        const bool isKnown = code >= 0 && static_cast<std::size_t>(code) < count;
        return isKnown ? text(names[static_cast<std::size_t>(code)]) : std::to_string(code);
    }
    [[nodiscard]] std::string value(const Value& held) const
    {
        if (const auto* const text = std::get_if<std::string>(&held))
            return *text;
        if (const auto* const flag = std::get_if<bool>(&held))
            return this->text(*flag ? host::yes : host::no);
        if (const auto* const whole = std::get_if<std::int32_t>(&held))
            return std::to_string(*whole);
        const auto* const real = std::get_if<double>(&held);
        return real ? number(*real) : std::string();
    }

    const StepWords& words_;
    std::vector<std::string> found_;
};

struct NamedPart {
    std::string key;  ///< by which it is recognised
    std::string name; ///< shown
};

std::vector<NamedPart> groupsOf(const InstrumentSettings& instrument)
{
    std::vector<NamedPart> parts;
    for (const GroupSettings& group : instrument.groups)
        parts.push_back({group.name, group.name});
    return parts;
}

std::vector<NamedPart> channelsOf(const InstrumentSettings& instrument)
{
    std::vector<NamedPart> parts;
    for (const GroupSettings& group : instrument.groups)
        for (const ChannelSettings& channel : group.channels)
            parts.push_back({channel.address, nameOf(channel)});
    return parts;
}

const NamedPart* missingIn(const std::vector<NamedPart>& in, const std::vector<NamedPart>& of)
{
    for (const NamedPart& part : of)
        if (std::none_of(in.begin(), in.end(), [&](const NamedPart& other) { return other.key == part.key; }))
            return &part;
    return nullptr;
}

/// Describes the first part that has been added, removed, swapped or renamed; empty if none has.
std::string describeParts(const std::vector<NamedPart>& before, const std::vector<NamedPart>& after,
                          const StepWords& words)
{
    const NamedPart* const removed = missingIn(after, before);
    const NamedPart* const added = missingIn(before, after);
    if (removed && added && before.size() == after.size())
        return filledIn(words.text(edit::named), {removed->name, added->name});
    if (removed || added)
        return filledIn(words.text(added ? edit::added : edit::removed), {(added ? added : removed)->name});
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
        if (before[i].key != after[i].key)
            return filledIn(words.text(edit::swapped), {before[i].name, after[i].name});
        if (before[i].name != after[i].name)
            return filledIn(words.text(edit::named), {before[i].name, after[i].name});
    }
    return {};
}

std::string describeStructure(const InstrumentSettings& before, const InstrumentSettings& after, const StepWords& words)
{
    if (before.name != after.name)
        return filledIn(words.text(edit::named), {before.name, after.name});
    const std::string groups = describeParts(groupsOf(before), groupsOf(after), words);
    return groups.empty() ? describeParts(channelsOf(before), channelsOf(after), words) : groups;
}

std::string describe(const InstrumentSettings& before, const InstrumentSettings& after, const StepWords& words)
{
    if (const std::string structure = describeStructure(before, after, words); !structure.empty())
        return structure;
    Differences differences(words);
    if (before.timebase && after.timebase)
        differences.timebase(*before.timebase, *after.timebase);
    differences.channels(before.groups, after.groups);
    if (before.triggerLines && after.triggerLines)
        differences.lines(*before.triggerLines, *after.triggerLines);
    return differences.joined();
}

const InstrumentSettings* missingIn(const HistoryState& in, const HistoryState& of)
{
    for (std::size_t i = 0; i < of.drivers.size(); ++i)
        if (std::find(in.drivers.begin(), in.drivers.end(), of.drivers[i]) == in.drivers.end())
            return of.settings[i].get();
    return nullptr;
}

/// Describes the first difference of two lists of other instruments, or of another order.
std::string describeLists(const HistoryState& before, const HistoryState& after, const StepWords& words)
{
    const InstrumentSettings* const removed = missingIn(after, before);
    const InstrumentSettings* const added = missingIn(before, after);
    if (removed && added && before.drivers.size() == after.drivers.size())
        return filledIn(words.text(named::settingsOf), {added->name});
    if (added)
        return filledIn(words.text(edit::added), {added->name});
    if (removed)
        return filledIn(words.text(edit::removed), {removed->name});
    std::size_t first = 0;
    while (before.drivers[first] == after.drivers[first])
        ++first;
    return filledIn(words.text(edit::swapped), {before.settings[first]->name, after.settings[first]->name});
}

} // namespace

std::string stepText(const HistoryState& before, const HistoryState& after, const StepWords& words)
{
    if (before.drivers != after.drivers)
        return describeLists(before, after, words);
    const std::size_t count = std::min(before.settings.size(), after.settings.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (*before.settings[i] == *after.settings[i])
            continue;
        const std::string text = describe(*before.settings[i], *after.settings[i], words);
        return text.empty() ? filledIn(words.text(named::settingsOf), {after.settings[i]->name}) : text;
    }
    return words.text(named::triggerChannel);
}

} // namespace ko
