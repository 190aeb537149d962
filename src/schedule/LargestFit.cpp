#include "schedule/LargestFit.h"

#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "schedule/DurationText.h"
#include "support/Numbers.h"

#include <algorithm>
#include <limits>

namespace ko {

namespace {

constexpr double finestDuration = 1e-2; // durations are named with two decimals
constexpr double finestRate = 1e-9;

} // namespace

std::optional<double> LargestFit::longest(SizeSettings others) const
{
    const auto fitsFor = [&](double seconds) {
        others.seconds = toSingle(seconds);
        return forecast_.check(others) == diskSpace::fits;
    };
    const double present = recording_.durationInForce().value_or(0.0);
    const double least = fitsFor(present) ? present : 0.0;
    const bool isAfter = page_.optAfter.value();
    // Stop times have a resolution of one second.
    const auto found =
        largestThatFits({least, std::numeric_limits<float>::max()}, isAfter ? finestDuration : 1.0, fitsFor);
    if (!found)
        return least > 0.0 ? std::optional(present) : std::nullopt;
    if (*found >= endless)
        return std::nullopt;
    return isAfter ? std::max(wholeDuration(*found), least) : *found;
}

std::string LargestFit::text(const Quantity& quantity, double held) const
{
    return numberText(quantity.shown(held), support_.locale());
}

EditedValue LargestFit::rateOf(double period) const
{
    const auto entry = std::find(listed_.begin(), listed_.end(), period);
    return {&rate_, text(rate_, period),
            entry == listed_.end() ? -1 : static_cast<std::int32_t>(entry - listed_.begin())};
}

std::optional<EditedValue> LargestFit::wanted(const SizeSettings& wanted) const
{
    if (const auto& period = wanted.*rate_.number->size)
        return rateOf(*period);
    if (!wanted.blockSize)
        return std::nullopt;
    const auto* size = std::find_if(quantities.begin(), quantities.end(), [](const Quantity& quantity) {
        return quantity.number == &timebaseNumber::blockSize;
    });
    EditedValue value{size, text(*size, *wanted.blockSize), -1};
    const auto& items = (page_.*size->list).items();
    const auto item = std::find_if(items.begin(), items.end(), [&](const auto& it) { return it.text == value.text; });
    if (item != items.end())
        value.entry = static_cast<std::int32_t>(item - items.begin());
    return value;
}

/// Drivers whose lists have no common value are edited in a box, but keep only values of their own list.
std::optional<EditedValue> LargestFit::highestRate(const SizeSettings& others) const
{
    const TimebaseNumber& number = *rate_.number;
    const IndexedTimebase at = shownTimebase(page_, number);
    if (!at || (listed_.empty() && !(page_.*rate_.box).isUsable()))
        return std::nullopt;
    const std::vector<DriverOffer>& offers = (page_.*number.offers).drivers;
    const auto hasList = [](const DriverOffer& offer) { return offer.kind == DriverOffer::Kind::List; };
    const bool hasOwnList = hasList(offers.at(static_cast<std::size_t>(at.driver)));
    if (listed_.empty() && number.toAllDrivers && std::any_of(offers.begin(), offers.end(), hasList))
        return std::nullopt;
    if (listed_.empty() && !hasOwnList)
        return rateForBox(others, *at.timebase);
    const auto found = shortestOf(listed_.empty() ? (at.timebase->*number.choices)() : listed_, others);
    return found ? std::optional(rateOf(*found)) : std::nullopt;
}

bool LargestFit::fits(SizeSettings others, double period) const
{
    others.*rate_.number->size = period;
    return forecast_.check(others) == diskSpace::fits;
}

std::optional<double> LargestFit::shortestOf(const std::vector<double>& periods, const SizeSettings& others) const
{
    std::optional<double> best;
    for (const double period : periods)
        if (period > 0.0 && (!best || period < *best) && fits(others, period))
            best = period;
    return best;
}

std::optional<EditedValue> LargestFit::rateForBox(const SizeSettings& others, Timebase& shown) const
{
    const auto fitsAt = [&](double rate) { return fits(others, reciprocal(rate)); };
    const double present = rate_.shown((shown.*rate_.number->get)());
    const double least = fitsAt(present) ? present : 0.0;
    const NumberBounds bounds = rate_.bounds(page_);
    const Range within{largerOf(bounds.minimum.value_or(0.0), least), bounds.maximum.value_or(endless)};
    auto found = largestThatFits(within, finestRate, fitsAt);
    if (!found && least > 0.0)
        found = present;
    if (!found || *found >= endless)
        return std::nullopt;
    return EditedValue{&rate_, numberText(*found, support_.locale()), -1};
}

} // namespace ko
