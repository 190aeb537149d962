#include "host/setup/SetupChanges.h"

#include "host/setup/SetupTemplates.h"
#include "host/support/InputError.h"
#include "host/support/Suggestion.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace ko {

namespace {

std::vector<std::string> namesOf(const Setup& setup)
{
    std::vector<std::string> names;
    for (const InstrumentSettings& instrument : setup.instruments)
        names.push_back(instrument.name);
    return names;
}

bool isTaken(const Setup& setup, const std::string& name)
{
    const std::vector<std::string> names = namesOf(setup);
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::vector<InstrumentSettings>::iterator instrumentNamed(Setup& setup, const std::string& name)
{
    const auto isNamed = [&](const InstrumentSettings& instrument) { return instrument.name == name; };
    const auto found = std::find_if(setup.instruments.begin(), setup.instruments.end(), isNamed);
    if (found == setup.instruments.end())
        throw InputError(name + ": no such instrument; " + suggestion(namesOf(setup), name));
    if (std::any_of(found + 1, setup.instruments.end(), isNamed))
        throw InputError(name + ": several instruments have this name");
    return found;
}

/// Returns the name with the first number that makes it a new one.
std::string freeName(const Setup& setup, const std::string& name)
{
    std::string free = name;
    for (int number = 2; isTaken(setup, free); ++number)
        free = name + " " + std::to_string(number);
    return free;
}

/// Visits each channel with its instrument.
template <class Settings, class Visit> void forEachChannelIn(Settings& setup, const Visit& visit)
{
    for (auto& instrument : setup.instruments)
        for (auto& group : instrument.groups)
            for (auto& channel : group.channels)
                visit(instrument, channel);
}

/// Returns a new instrument of the kind of this word, or the device "MODULE/DEVICE".
InstrumentSettings instrumentOf(const std::string& kind)
{
    const std::size_t slash = kind.find('/');
    if (slash != std::string::npos && slash > 0 && slash + 1 < kind.size()) {
        InstrumentSettings device;
        device.name = device.device = kind.substr(slash + 1);
        device.module = kind.substr(0, slash);
        return device;
    }
    std::vector<std::string> words;
    for (InstrumentSettings& instrument : instrumentKinds()) {
        words.push_back(kindWord(instrument));
        if (words.back() == kind)
            return std::move(instrument);
    }
    throw InputError(kind + ": no such kind of instrument; " + suggestion(words, kind));
}

/// Returns the slot of an address "mainframe:slot:channel" or "slot:channel"; 0 for another text.
int slotOf(const std::string& address)
{
    const std::size_t last = address.rfind(':');
    if (last == std::string::npos || last == 0)
        return 0;
    const std::size_t first = address.rfind(':', last - 1);
    int slot = 0;
    std::from_chars(address.data() + (first == std::string::npos ? 0 : first + 1), address.data() + last, slot);
    return slot;
}

/// A channel's name on the command line: its own, or "INSTRUMENT/" and its own.
struct ChannelName {
    std::string instrument; ///< empty: any
    std::string channel;

    [[nodiscard]] bool isOf(const InstrumentSettings& settings) const
    {
        return instrument.empty() || instrument == settings.name;
    }
    [[nodiscard]] bool isOf(const ChannelSettings& settings) const
    {
        return !channel.empty() && (channel == settings.address || channel == settings.name);
    }
};

/// The names of instruments and channels may contain slashes, too.
ChannelName channelNameIn(const Setup& setup, const std::string& text)
{
    for (std::size_t slash = text.find('/'); slash != std::string::npos; slash = text.find('/', slash + 1))
        if (isTaken(setup, text.substr(0, slash)))
            return {text.substr(0, slash), text.substr(slash + 1)};
    return {{}, text};
}

ChannelSettings& channelNamed(Setup& setup, const std::string& text)
{
    const ChannelName name = channelNameIn(setup, text);
    std::vector<ChannelSettings*> found;
    std::vector<std::string> offered, several;
    forEachChannelIn(setup, [&](InstrumentSettings& instrument, ChannelSettings& channel) {
        if (!name.isOf(instrument))
            return;
        offered.push_back(channel.name.empty() ? channel.address : channel.name);
        if (!name.isOf(channel))
            return;
        found.push_back(&channel);
        several.push_back(instrument.name + "/" + channel.address);
    });
    if (found.empty())
        throw InputError(text + ": no such channel; " + suggestion(offered, name.channel));
    if (found.size() > 1)
        throw InputError(text + ": several channels have this name: " + joined(several, ", "));
    return *found.front();
}

/// Parses "OLD=NEW" and renames. A name may contain an equals sign; the longest existing name is taken.
void renameBy(Setup& setup, const std::string& text)
{
    const std::size_t first = text.find('=');
    if (first == std::string::npos)
        throw InputError(text + ": --rename needs OLD=NEW");
    for (std::size_t sign = text.rfind('='); sign > first; sign = text.rfind('=', sign - 1))
        if (isTaken(setup, text.substr(0, sign)))
            return renameInstrument(setup, text.substr(0, sign), text.substr(sign + 1));
    renameInstrument(setup, text.substr(0, first), text.substr(first + 1));
}

} // namespace

void checkNewName(const Setup& setup, const std::string& name)
{
    if (name.empty())
        throw InputError("an instrument needs a name");
    if (isTaken(setup, name))
        throw InputError(name + ": an instrument of this name exists");
}

int freeNumber(const std::set<int>& taken)
{
    const int last = taken.empty() ? 0 : std::max(*taken.rbegin(), 0);
    if (last < std::numeric_limits<int>::max())
        return last + 1;
    int number = 1;
    while (taken.contains(number))
        ++number;
    return number;
}

int freeSlot(const Setup& setup)
{
    std::set<int> slots;
    forEachChannelIn(setup, [&](const InstrumentSettings& /*instrument*/, const ChannelSettings& channel) {
        slots.insert(slotOf(channel.address));
    });
    return freeNumber(slots);
}

void moveToFreeSlot(const Setup& setup, InstrumentSettings& instrument)
{
    // Those of a device are its own.
    if (!instrument.module.empty())
        return;
    const std::string slot = "0:" + std::to_string(freeSlot(setup)) + ":";
    for (GroupSettings& group : instrument.groups)
        for (ChannelSettings& channel : group.channels)
            channel.address = slot + channel.address.substr(channel.address.rfind(':') + 1);
}

std::size_t addInstrument(Setup& setup, InstrumentSettings instrument)
{
    instrument.name = freeName(setup, instrument.name);
    moveToFreeSlot(setup, instrument);
    setup.instruments.push_back(std::move(instrument));
    return setup.instruments.size() - 1;
}

std::size_t addInstrument(Setup& setup, const std::string& kind, const std::string& name)
{
    InstrumentSettings instrument = instrumentOf(kind);
    if (!name.empty()) {
        checkNewName(setup, name);
        instrument.name = name;
    }
    return addInstrument(setup, std::move(instrument));
}

void removeInstrument(Setup& setup, const std::string& name)
{
    setup.instruments.erase(instrumentNamed(setup, name));
}

void describeInstrument(Setup& setup, std::size_t index, const InstrumentSettings& settings)
{
    InstrumentSettings& instrument = setup.instruments.at(index);
    if (settings.name != instrument.name)
        checkNewName(setup, settings.name);
    instrument = settings;
}

void renameInstrument(Setup& setup, const std::string& name, const std::string& newName)
{
    const auto instrument = instrumentNamed(setup, name);
    if (newName == name)
        return;
    checkNewName(setup, newName);
    instrument->name = newName;
}

void enableChannel(Setup& setup, const std::string& channel, bool on)
{
    channelNamed(setup, channel).enabled = std::int32_t{on};
}

void applyChange(Setup& setup, const SetupChange& change)
{
    switch (change.kind) {
    case SetupChange::Kind::Add: addInstrument(setup, change.argument, change.name); break;
    case SetupChange::Kind::Remove: removeInstrument(setup, change.argument); break;
    case SetupChange::Kind::Rename: renameBy(setup, change.argument); break;
    case SetupChange::Kind::Enable: enableChannel(setup, change.argument, true); break;
    case SetupChange::Kind::Disable: enableChannel(setup, change.argument, false); break;
    }
}

} // namespace ko
