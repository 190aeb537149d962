#include "triggering/TriggerSource.h"

#include "interfaces/TriggerParameters.h"

#include <algorithm>

namespace ko {

namespace {

bool contains(const SourceSwitches::Sources& sources, const TriggerSource& source)
{
    return std::find(sources.begin(), sources.end(), source) != sources.end();
}

} // namespace

SourceSwitches::Sources SourceSwitches::markedBesides(const Sources& known) const
{
    Sources marked;
    const std::int32_t slots = step_.value([&] { return driver_.GroupCount(); });
    for (std::int32_t slot = 0; slot < slots; ++slot) {
        const std::int32_t channels = step_.value([&] { return driver_.ChannelCount(slot); });
        for (std::int32_t channel = 0; channel < channels; ++channel)
            if (!contains(known, {slot, channel}) &&
                step_.value([&] { return parameters_.TriggerEnabled(slot, channel); }))
                marked.push_back({slot, channel});
    }
    return marked;
}

bool SourceSwitches::set(const TriggerSource& source, bool on) const
{
    return step_([&] { parameters_.setTriggerEnabled(source.slot, source.channel, on); });
}

bool SourceSwitches::write(const TriggerSource& source, bool on) const
{
    bool marked = set(source, on) == on;
    step_([&] { marked = parameters_.TriggerEnabled(source.slot, source.channel); });
    return marked;
}

TriggerSource SourceSwitches::move(const Sources& from, const TriggerSource& to) const
{
    for (const TriggerSource& source : from)
        set(source, false);
    if (write(to, true))
        return to;
    const Sources marked = markedBesides({to});
    if (marked.empty() && !from.empty())
        set(from.front(), true);
    if (!from.empty() && (marked.empty() || contains(marked, from.front())))
        return from.front();
    return marked.empty() ? TriggerSource() : marked.front();
}

} // namespace ko
