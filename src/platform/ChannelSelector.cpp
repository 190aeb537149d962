#include "platform/ChannelSelector.h"

#include "interfaces/TriggerParameters.h"
#include "platform/Form.h"

#include <algorithm>

namespace ko {

namespace {

std::string textOf(const Value& value)
{
    const auto* text = std::get_if<std::string>(&value);
    return text ? *text : std::string();
}

} // namespace

/// The result of `question`, or a default-constructed one when the driver fails.
template <class Question> auto ChannelSelector::resultOf(Question&& question) const
{
    using Answer = std::decay_t<std::invoke_result_t<Question>>;
    try {
        return Answer(question());
    } catch (...) {
        raise(failed);
        return Answer{};
    }
}

void ChannelSelector::setDrivers(const DriverList& drivers)
{
    const auto count = std::min(static_cast<std::size_t>(std::max(announced_, 0)), drivers.size());
    drivers_.assign(drivers.begin(), drivers.begin() + static_cast<std::ptrdiff_t>(count));
    list();
}

void ChannelSelector::list()
{
    entries_.clear();
    selected_.clear();
    for (const auto& driver : drivers_)
        if (driver && resultOf([&] { return passesFilters(*driver); }))
            listDriver(driver);
    tellView(Aspect::Items);
}

void ChannelSelector::listDriver(const std::shared_ptr<Driver>& driver)
{
    entries_.push_back({driver, -1, -1, resultOf([&] { return driver->DriverName(0); })});
    const std::int32_t groups = resultOf([&] { return driver->GroupCount(); });
    TriggerParameters* trigger = nullptr;
    const bool isOffered = !canTrigger_ || resultOf([&] {
        trigger = driver->queryTriggerParameters();
        return true;
    });
    for (std::int32_t slot = 0; isOffered && slot < groups; ++slot)
        listGroup(driver, slot, trigger);
}

void ChannelSelector::listGroup(const std::shared_ptr<Driver>& driver, std::int32_t slot, TriggerParameters* trigger)
{
    const std::int32_t channels = resultOf([&] { return driver->ChannelCount(slot); });
    const std::size_t groupLine = entries_.size();
    for (std::int32_t channel = 0; channel < channels; ++channel) {
        if (trigger && !resultOf([&] { return trigger->CanTrigger(slot, channel); }))
            continue;
        const auto attributeText = [&](std::int32_t number) {
            return resultOf([&] { return textOf(driver->ChannelAttribute(slot, channel, number)); });
        };
        const std::string name = attributeText(attribute::name);
        const std::string address = attributeText(attribute::address);
        entries_.push_back({driver, slot, channel,
                            name.empty() ? address : std::string(name).append(" (").append(address).append(")")});
    }
    if (entries_.size() == groupLine)
        return;
    Entry group{driver, slot, -1, resultOf([&] { return driver->GroupName(slot); })};
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(groupLine), std::move(group));
}

bool ChannelSelector::passesFilters(Driver& driver) const
{
    if (direction_ != inputs)
        return false;
    const bool ofOneKind = driverType_ != everyDriver || singleValue_ != multiValue_;
    if (!ofOneKind)
        return true;
    const bool dynamic = driver.MeasurementMode() == 1 && driver.SamplingMode() == 1;
    if (driverType_ != everyDriver && dynamic != (driverType_ == dynamicDrivers))
        return false;
    return singleValue_ == multiValue_ || dynamic == multiValue_;
}

std::size_t ChannelSelector::mostSelections() const
{
    return multipleSelection_ ? static_cast<std::size_t>(std::max(selectionLimit_, 0)) : 1;
}

void ChannelSelector::setNotes(std::vector<std::string> notes)
{
    notes_ = std::move(notes);
    tellView(Aspect::Items);
}

void ChannelSelector::reset()
{
    select({});
}

void ChannelSelector::preselect(const ChannelSelections& channels)
{
    Lines lines;
    for (std::int32_t i = 1; i <= channels.drivers.count(); ++i) {
        const Driver* driver = channels.drivers[i].get();
        const auto line =
            driver && channels.groups[i] >= 0 ? lineOf(driver, channels.groups[i], channels.channels[i]) : std::nullopt;
        if (line)
            lines.push_back(*line);
    }
    select(std::move(lines));
}

void ChannelSelector::select(Lines lines)
{
    lines.resize(std::min(lines.size(), mostSelections()));
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    if (selected_ == lines)
        return;
    selected_ = std::move(lines);
    tellView(Aspect::Selection);
}

std::int32_t ChannelSelector::getSelections(ChannelSelections& selections) const
{
    selections = {};
    for (const std::size_t line : selected_) {
        selections.drivers.add(entries_[line].driver);
        selections.groups.add(entries_[line].slot);
        selections.channels.add(entries_[line].channel);
    }
    return selections.drivers.count();
}

std::optional<std::size_t> ChannelSelector::lineOf(const Driver* driver, std::int32_t slot, std::int32_t channel) const
{
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return (!driver || entry.driver.get() == driver) && entry.slot == slot && entry.channel == channel;
    });
    return found == entries_.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - entries_.begin()));
}

void ChannelSelector::recordLines(const char* verb, const Lines& lines) const
{
    std::vector<std::string> words{verb};
    for (const std::size_t line : lines) {
        words.push_back(std::to_string(entries_[line].slot));
        words.push_back(std::to_string(entries_[line].channel));
    }
    if (lines.empty())
        words.emplace_back("none");
    form().userActs(words);
}

Outcome ChannelSelector::userPicked(Lines lines)
{
    if (std::any_of(lines.begin(), lines.end(), [&](std::size_t line) { return line >= entries_.size(); }))
        return Outcome::Inert;
    return pick("pick", std::move(lines));
}

Outcome ChannelSelector::pick(const char* verb, Lines lines)
{
    const Outcome entered = enter();
    if (entered != Outcome::Done)
        return entered;
    if (form().userActs)
        recordLines(verb, lines);
    select(std::move(lines));
    return entered;
}

Outcome ChannelSelector::userActivated(std::size_t line)
{
    if (line >= entries_.size())
        return Outcome::Inert;
    const Outcome picked = pick("activate", {line});
    if (picked == Outcome::Done)
        raise(activated);
    return picked;
}

} // namespace ko
