#include "host/sheet/InstrumentRow.h"

namespace ko {

InstrumentRow::InstrumentRow(const HostInstruments& drivers) : filled_(true)
{
    for (const auto& driver : drivers)
        add(Kind::Instrument, *driver);
}

InstrumentRow::InstrumentRow(InstrumentRow& parent, Kind kind, HostInstrument& driver)
    : kind_(kind), parent_(&parent), driver_(&driver), number_(static_cast<int>(parent.rows_.size())),
      group_(parent.group_), channel_(parent.channel_)
{
}

const GroupSettings& InstrumentRow::groupSettings() const
{
    return driver_->held().groups[static_cast<std::size_t>(group_)];
}

const ChannelSettings& InstrumentRow::channelSettings() const
{
    return groupSettings().channels[static_cast<std::size_t>(channel_)];
}

bool InstrumentRow::hasRows() const
{
    switch (kind_) {
    case Kind::Root: return !rows_.empty();
    case Kind::Instrument: {
        const InstrumentSettings& held = driver_->held();
        return held.timebase || held.triggerLines || !held.groups.empty();
    }
    case Kind::Group: return !groupSettings().channels.empty();
    case Kind::Channel: return !channelSettings().triggerParameters.empty();
    case Kind::Timebase:
    case Kind::Lines: return true;
    default: return false;
    }
}

const std::vector<std::unique_ptr<InstrumentRow>>& InstrumentRow::rows()
{
    if (filled_)
        return rows_;
    filled_ = true;
    switch (kind_) {
    case Kind::Instrument: addInstrumentRows(); break;
    case Kind::Timebase: addItems(Kind::Quantity, quantityCount()); break;
    case Kind::Group: addChannels(); break;
    case Kind::Channel: addItems(Kind::Parameter, channelSettings().triggerParameters.size()); break;
    case Kind::Lines: addItems(Kind::Line, lineCount()); break;
    default: break;
    }
    return rows_;
}

InstrumentRow& InstrumentRow::add(Kind kind, HostInstrument& driver)
{
    rows_.push_back(std::make_unique<InstrumentRow>(*this, kind, driver));
    return *rows_.back();
}

void InstrumentRow::addItems(Kind kind, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        add(kind, *driver_).item_ = i;
}

void InstrumentRow::addInstrumentRows()
{
    const InstrumentSettings& held = driver_->held();
    if (held.timebase)
        add(Kind::Timebase, *driver_);
    for (std::size_t i = 0; i < held.groups.size(); ++i)
        add(Kind::Group, *driver_).group_ = static_cast<int>(i);
    if (held.triggerLines)
        add(Kind::Lines, *driver_);
}

void InstrumentRow::addChannels()
{
    for (std::size_t i = 0; i < groupSettings().channels.size(); ++i)
        add(Kind::Channel, *driver_).channel_ = static_cast<int>(i);
}

} // namespace ko
