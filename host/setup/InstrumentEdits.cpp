#include "host/setup/InstrumentEdits.h"

#include "host/setup/SetupReader.h"
#include "host/setup/SetupSaving.h"
#include "host/setup/SetupWriter.h"
#include "host/support/InputError.h"

#include <algorithm>
#include <map>

namespace ko {

namespace {

using InstrumentList = std::vector<InstrumentSettings>;

/// Finds for each instrument after a change which one it was before.
class Origins {
public:
    Origins(const InstrumentList& before, const InstrumentList& after)
        : before_(before), after_(after), of_(after.size())
    {
        matchEnds();
        matchNames([](const InstrumentSettings& was, const InstrumentSettings& is) { return was == is; });
        matchNames([](const auto&, const auto&) { return true; });
        if (before.size() == after.size())
            matchPlaces();
    }

    [[nodiscard]] const std::vector<std::optional<std::size_t>>& of() const { return of_; }

private:
    void match(std::size_t was, std::size_t is)
    {
        of_[is] = was;
        isTaken_[was] = true;
    }

    /// A change mostly leaves all but one as they are.
    void matchEnds()
    {
        const std::size_t count = std::min(before_.size(), after_.size());
        std::size_t begin = 0;
        for (; begin < count && before_[begin] == after_[begin]; ++begin)
            match(begin, begin);
        for (std::size_t i = 1; begin + i <= count && before_[before_.size() - i] == after_[after_.size() - i]; ++i)
            match(before_.size() - i, after_.size() - i);
    }

    template <class Match> void matchNames(const Match& isMatch)
    {
        std::multimap<std::string, std::size_t> free;
        for (std::size_t i = 0; i < before_.size(); ++i)
            if (!isTaken_[i])
                free.emplace(before_[i].name, i);
        for (std::size_t i = 0; i < after_.size(); ++i) {
            if (of_[i])
                continue;
            const auto [first, last] = free.equal_range(after_[i].name);
            const auto found =
                std::find_if(first, last, [&](const auto& named) { return isMatch(before_[named.second], after_[i]); });
            if (found == last)
                continue;
            match(found->second, i);
            free.erase(found);
        }
    }

    /// Those that have been renamed.
    void matchPlaces()
    {
        for (std::size_t i = 0; i < after_.size(); ++i)
            if (!of_[i] && !isTaken_[i])
                match(i, i);
    }

    const InstrumentList& before_;
    const InstrumentList& after_;
    std::vector<std::optional<std::size_t>> of_;
    std::vector<bool> isTaken_ = std::vector<bool>(before_.size());
};

/// Returns the description as a set-up file would hold it.
InstrumentSettings checked(const InstrumentSettings& instrument)
{
    Setup alone;
    alone.instruments.push_back(instrument);
    const JsonValue json = parseJson(setupText(alone), {});
    try {
        return readSetup(json).instruments.front();
    } catch (const JsonRefusal& refusal) {
        throw InputError(instrument.name + ": " + placeOf(refusal.value(), json).path + refusal.what());
    }
}

/// The page takes the kinds of the instruments when it receives their list.
bool areOfOneKind(const InstrumentSettings& one, const InstrumentSettings& other)
{
    return one.measurementMode == other.measurementMode && one.samplingMode == other.samplingMode;
}

/// Whether the instrument can become this one. A device has the views that it has, whatever its description says.
bool canBecome(const InstrumentSettings& one, const InstrumentSettings& other)
{
    const bool isSameDevice = one.module == other.module && one.device == other.device;
    return isSameDevice && (!one.module.empty() || (haveSameViews(one, other) && areOfOneKind(one, other)));
}

template <class Is> std::optional<ChannelPlace> placeWhere(const InstrumentSettings& instrument, const Is& is)
{
    for (std::size_t g = 0; g < instrument.groups.size(); ++g)
        for (std::size_t c = 0; c < instrument.groups[g].channels.size(); ++c)
            if (is(instrument.groups[g].channels[c]))
                return ChannelPlace{static_cast<std::int32_t>(g), static_cast<std::int32_t>(c)};
    return std::nullopt;
}

const ChannelSettings* channelAt(const InstrumentSettings& instrument, const ChannelPlace& place)
{
    const auto group = static_cast<std::size_t>(place.group);
    const auto channel = static_cast<std::size_t>(place.channel);
    const bool exists = place.group >= 0 && place.channel >= 0 && group < instrument.groups.size() &&
                        channel < instrument.groups[group].channels.size();
    return exists ? &instrument.groups[group].channels[channel] : nullptr;
}

} // namespace

HeldState changedInstruments(const HostInstruments& drivers, const InstrumentChange& change,
                             const std::shared_ptr<DeviceSource>& devices)
{
    const Setup before = withPresentValues({}, drivers);
    Setup after = before;
    change(after);
    const Origins origins(before.instruments, after.instruments);
    HeldState state;
    for (std::size_t i = 0; i < after.instruments.size(); ++i) {
        const std::optional<std::size_t> was = origins.of()[i];
        const bool isSame = was && before.instruments[*was] == after.instruments[i];
        auto is = isSame ? drivers[*was]->held() : checked(after.instruments[i]);
        if (was && canBecome(before.instruments[*was], is)) {
            is.failing = drivers[*was]->held().failing;
            state.drivers.push_back(drivers[*was]);
        } else {
            state.drivers.push_back(makeInstrument(is, devices));
        }
        state.settings.push_back(std::make_shared<const InstrumentSettings>(std::move(is)));
    }
    return state;
}

ChannelPlace movedTrigger(const ChannelPlace& place, const InstrumentSettings& before, const InstrumentSettings& after)
{
    const auto wasMarked = [&](const ChannelSettings& channel) {
        return placeWhere(
                   before,
                   [&](const ChannelSettings& was) { return was.triggerSource && was.address == channel.address; })
            .has_value();
    };
    const auto isNewlyMarked = [&](const ChannelSettings& channel) {
        return channel.triggerSource && !wasMarked(channel);
    };
    if (const auto marked = placeWhere(after, isNewlyMarked))
        return *marked;
    const ChannelSettings* const was = channelAt(before, place);
    if (before.groups == after.groups || !was)
        return place;
    if (const ChannelSettings* const is = channelAt(after, place); is && is->address == was->address)
        return place;
    const auto found =
        placeWhere(after, [&](const ChannelSettings& channel) { return channel.address == was->address; });
    return found.value_or(ChannelPlace{});
}

} // namespace ko
