#include "host/setup/PlacedChanges.h"

#include "host/setup/SetupChanges.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace ko {

namespace {

using Names = std::set<std::string>;

template <class Parts> Names namesIn(const Parts& parts)
{
    Names names;
    for (const auto& part : parts)
        names.insert(part.name);
    return names;
}

Names channelNamesIn(const InstrumentSettings& instrument)
{
    Names names;
    for (const GroupSettings& group : instrument.groups)
        names.merge(namesIn(group.channels));
    return names;
}

/// Returns the name, or its next number that is free: "Input 4" after "Input 3".
std::string freeNameIn(const Names& taken, const std::string& name)
{
    if (name.empty() || !taken.contains(name))
        return name;
    const std::size_t digits = name.find_last_not_of("0123456789") + 1;
    const bool isNumbered = digits < name.size() && digits > 1 && name[digits - 1] == ' ' && name.size() - digits < 9;
    const std::string stem = isNumbered ? name.substr(0, digits) : name + " ";
    for (int number = isNumbered ? std::stoi(name.substr(digits)) + 1 : 2;; ++number)
        if (const std::string free = stem + std::to_string(number); !taken.contains(free))
            return free;
}

InstrumentSettings& instrumentAt(Setup& setup, const SetupPlace& place)
{
    return setup.instruments[place.instrument];
}

GroupSettings& groupAt(Setup& setup, const SetupPlace& place)
{
    return instrumentAt(setup, place).groups[static_cast<std::size_t>(place.group)];
}

ChannelSettings& channelAt(Setup& setup, const SetupPlace& place)
{
    return groupAt(setup, place).channels[static_cast<std::size_t>(place.channel)];
}

/// Calls `visit` with the list that the place is in and its index there.
template <class Visit> void withList(Setup& setup, const SetupPlace& place, const Visit& visit)
{
    if (place.isInstrument())
        visit(setup.instruments, static_cast<std::ptrdiff_t>(place.instrument));
    else if (!place.isChannel())
        visit(instrumentAt(setup, place).groups, place.group);
    else
        visit(groupAt(setup, place).channels, place.channel);
}

SetupPlace shifted(SetupPlace place, int by)
{
    if (place.isInstrument())
        place.instrument += static_cast<std::size_t>(by);
    else
        (place.isChannel() ? place.channel : place.group) += by;
    return place;
}

/// Shifts a later place when something is inserted after `place`.
void makeRoom(SetupPlace& later, const SetupPlace& place)
{
    if (place.isInstrument())
        later.instrument += later.instrument > place.instrument ? 1 : 0;
    else if (later.instrument == place.instrument && !place.isChannel())
        later.group += later.group > place.group ? 1 : 0;
    else if (later.instrument == place.instrument && later.group == place.group)
        later.channel += later.channel > place.channel ? 1 : 0;
}

/// Changes at later places leave the earlier ones where they are.
SetupPlaces reversed(SetupPlaces places)
{
    std::reverse(places.begin(), places.end());
    return places;
}

bool areNeighbours(const SetupPlace& one, const SetupPlace& other)
{
    return one.isInstrument() == other.isInstrument() && one.isChannel() == other.isChannel() &&
           (one.isInstrument() || one.instrument == other.instrument) && (!one.isChannel() || one.group == other.group);
}

/// Returns the address with the next number that the instrument does not use.
std::string freeAddress(const InstrumentSettings& instrument, const std::string& like)
{
    const std::string prefix = like.substr(0, like.rfind(':') + 1);
    std::set<int> numbers;
    for (const GroupSettings& group : instrument.groups)
        for (const ChannelSettings& channel : group.channels) {
            int number = 0;
            const std::string& address = channel.address;
            if (address.starts_with(prefix))
                std::from_chars(address.data() + prefix.size(), address.data() + address.size(), number);
            numbers.insert(number);
        }
    return prefix + std::to_string(freeNumber(numbers));
}

ChannelSettings copyOf(const InstrumentSettings& instrument, ChannelSettings channel)
{
    channel.name = freeNameIn(channelNamesIn(instrument), channel.name);
    channel.address = freeAddress(instrument, channel.address);
    channel.triggerSource = false;
    return channel;
}

void duplicateInstrument(Setup& setup, const SetupPlace& place)
{
    InstrumentSettings copy = instrumentAt(setup, place);
    copy.name = freeNameIn(namesIn(setup.instruments), copy.name);
    copy.failing.clear();
    moveToFreeSlot(setup, copy);
    for (GroupSettings& group : copy.groups)
        for (ChannelSettings& channel : group.channels)
            channel.triggerSource = false;
    setup.instruments.insert(setup.instruments.begin() + static_cast<std::ptrdiff_t>(place.instrument) + 1,
                             std::move(copy));
}

void duplicateGroup(Setup& setup, const SetupPlace& place)
{
    InstrumentSettings& instrument = instrumentAt(setup, place);
    const GroupSettings original = groupAt(setup, place);
    auto copy = instrument.groups.insert(instrument.groups.begin() + place.group + 1,
                                         {freeNameIn(namesIn(instrument.groups), original.name), {}});
    for (const ChannelSettings& channel : original.channels)
        copy->channels.push_back(copyOf(instrument, channel));
}

void duplicateChannel(Setup& setup, const SetupPlace& place)
{
    std::vector<ChannelSettings>& channels = groupAt(setup, place).channels;
    channels.insert(channels.begin() + place.channel + 1, copyOf(instrumentAt(setup, place), channelAt(setup, place)));
}

/// Calls `visit` with the channels at a place and below it.
template <class Visit> void forEachChannelAt(Setup& setup, const SetupPlace& place, const Visit& visit)
{
    if (place.isChannel())
        return visit(channelAt(setup, place));
    std::vector<GroupSettings>& groups = instrumentAt(setup, place).groups;
    for (std::size_t i = 0; i < groups.size(); ++i)
        if (place.isInstrument() || static_cast<int>(i) == place.group)
            std::for_each(groups[i].channels.begin(), groups[i].channels.end(), visit);
}

} // namespace

void renameAt(Setup& setup, const SetupPlace& place, const std::string& name)
{
    if (place.isInstrument() && name != instrumentAt(setup, place).name)
        checkNewName(setup, name);
    if (name.empty() && !place.isChannel())
        throw InputError("a group needs a name");
    withList(setup, place, [&](auto& list, std::ptrdiff_t at) { list[static_cast<std::size_t>(at)].name = name; });
}

void removeAt(Setup& setup, const SetupPlaces& places)
{
    for (const SetupPlace& place : reversed(places))
        withList(setup, place, [](auto& list, std::ptrdiff_t at) { list.erase(list.begin() + at); });
}

SetupPlaces duplicateAt(Setup& setup, const SetupPlaces& places)
{
    SetupPlaces copies;
    for (const SetupPlace& place : reversed(places)) {
        for (SetupPlace& copy : copies)
            makeRoom(copy, place);
        copies.push_back(shifted(place, 1));
        if (place.isInstrument())
            duplicateInstrument(setup, place);
        else
            place.isChannel() ? duplicateChannel(setup, place) : duplicateGroup(setup, place);
    }
    std::sort(copies.begin(), copies.end());
    return copies;
}

SetupPlaces moveAt(Setup& setup, const SetupPlaces& places, bool down)
{
    SetupPlaces moved = places;
    if (places.empty() || !std::all_of(places.begin(), places.end(),
                                       [&](const SetupPlace& place) { return areNeighbours(place, places.front()); }))
        return moved;
    if (down)
        std::reverse(moved.begin(), moved.end());
    const auto isAtEnd = [&](const auto& list, std::ptrdiff_t at) {
        return at == (down ? static_cast<std::ptrdiff_t>(list.size()) - 1 : 0);
    };
    bool isBlocked = false;
    withList(setup, moved.front(), [&](const auto& list, std::ptrdiff_t at) { isBlocked = isAtEnd(list, at); });
    if (isBlocked)
        return places;
    for (SetupPlace& place : moved) {
        withList(setup, place, [&](auto& list, std::ptrdiff_t at) {
            std::swap(list[static_cast<std::size_t>(at)], list[static_cast<std::size_t>(down ? at + 1 : at - 1)]);
        });
        place = shifted(place, down ? 1 : -1);
    }
    std::sort(moved.begin(), moved.end());
    return moved;
}

SetupPlace addGroup(Setup& setup, std::size_t instrument, const std::string& name)
{
    std::vector<GroupSettings>& groups = setup.instruments[instrument].groups;
    groups.push_back({freeNameIn(namesIn(groups), name), {}});
    return {instrument, static_cast<int>(groups.size()) - 1, -1};
}

SetupPlace addChannel(Setup& setup, const SetupPlace& group)
{
    const InstrumentSettings& instrument = instrumentAt(setup, group);
    const ChannelSettings* like = nullptr;
    for (const GroupSettings& other : instrument.groups)
        if (!other.channels.empty())
            like = &other.channels.back();
    std::vector<ChannelSettings>& channels = groupAt(setup, group).channels;
    if (!channels.empty())
        like = &channels.back();
    ChannelSettings added;
    added.address = "0:" + std::to_string(freeSlot(setup)) + ":1";
    if (like)
        added = copyOf(instrument, *like);
    added.enabled = std::int32_t{1};
    channels.push_back(std::move(added));
    return {group.instrument, group.group, static_cast<int>(channels.size()) - 1};
}

void enableAt(Setup& setup, const SetupPlaces& places, bool on)
{
    for (const SetupPlace& place : places)
        forEachChannelAt(setup, place, [&](ChannelSettings& channel) { channel.enabled = std::int32_t{on}; });
}

void chooseTrigger(Setup& setup, const SetupPlace& channel)
{
    const ChannelSettings& chosen = channelAt(setup, channel);
    if (!chosen.canTrigger)
        throw InputError((chosen.name.empty() ? chosen.address : chosen.name) + ": cannot trigger");
    const SetupPlace whole{channel.instrument};
    forEachChannelAt(setup, whole, [](ChannelSettings& other) { other.triggerSource = false; });
    channelAt(setup, channel).triggerSource = true;
}

} // namespace ko
