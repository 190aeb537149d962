#include "timebase/ChoiceLists.h"

#include "support/Numbers.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace ko {

namespace {

bool isKept(Range range)
{
    return range.minimum > 0.0 || range.maximum > 0.0;
}

bool isRising(const std::vector<double>& list)
{
    bool rises = true;
    for (std::size_t i = 1; i < list.size(); ++i)
        rises &= list[i - 1] <= list[i];
    return rises;
}

/// Keeps in `a` the values that are also in `[b, end)`, both sorted by `before`.
template <class Iterator, class Before>
void keepCommon(std::vector<double>& a, Iterator b, Iterator end, Before before, std::vector<double>& removed)
{
    auto kept = a.begin();
    auto next = a.begin();
    while (next != a.end() && b != end) {
        if (before(*b, *next))
            ++b;
        else if (*b == *next)
            *kept++ = *next++;
        else
            removed.push_back(*next++);
    }
    removed.insert(removed.end(), next, a.end());
    a.erase(kept, a.end());
}

template <class Predicate> void keepIf(std::vector<double>& list, Predicate keeps, std::vector<double>& removed)
{
    std::erase_if(list, [&](double value) {
        const bool goes = !keeps(value);
        if (goes)
            removed.push_back(value);
        return goes;
    });
}

Range endsOf(const std::vector<double>& list)
{
    const auto [lowest, highest] = std::minmax_element(list.begin(), list.end());
    return {*lowest, *highest};
}

} // namespace

void commonValues(std::vector<double>& a, std::vector<double> b, std::vector<double>& removed)
{
    // Drivers of the same type return the same list, and most lists are sorted.
    if (a == b)
        return;
    if (!isRising(b)) {
        std::reverse(b.begin(), b.end());
        if (!isRising(b))
            std::sort(b.begin(), b.end());
    }
    if (isRising(a))
        keepCommon(a, b.begin(), b.end(), std::less<>(), removed);
    else if (std::is_sorted(a.rbegin(), a.rend()))
        keepCommon(a, b.rbegin(), b.rend(), std::greater<>(), removed);
    else
        keepIf(
            a, [&](double value) { return std::binary_search(b.begin(), b.end(), value); }, removed);
}

void valuesInRange(std::vector<double>& list, Range range, std::vector<double>& removed)
{
    keepIf(
        list, [&](double value) { return range.minimum <= value && value <= range.maximum; }, removed);
}

bool MergedChoices::canBeChosen(double value) const
{
    return value > 0.0 && std::isfinite(value) && (!periods_ || std::isfinite(1.0 / value));
}

DriverOffer& MergedChoices::add(DriverOffer::Kind kind, Range offered)
{
    DriverOffer& offer = account_.drivers.emplace_back();
    offer.kind = kind;
    offer.offered = offered;
    offer.kept = range_;
    offer.removedFrom = static_cast<std::uint32_t>(account_.removed.size());
    offer.unusable = static_cast<std::uint32_t>(std::exchange(unusable_, 0));
    return offer;
}

/// Attributes the values removed since the offer was added to this offer.
void MergedChoices::settle(DriverOffer& offer)
{
    offer.removed = static_cast<std::uint32_t>(account_.removed.size()) - offer.removedFrom;
    if (values_.empty())
        offer.effect = DriverOffer::Effect::Empties;
    else if (offer.removed > 0)
        offer.effect = DriverOffer::Effect::Removes;
}

void MergedChoices::begin(DriverOffer& offer, std::vector<double> choices)
{
    values_ = std::move(choices);
    if (isKept(range_))
        valuesInRange(values_, range_, account_.removed);
    // These values were never common.
    if (values_.empty())
        account_.removed.resize(offer.removedFrom);
    settle(offer);
    if (!values_.empty())
        offer.effect = DriverOffer::Effect::Begins;
}

bool MergedChoices::addList(std::vector<double> choices)
{
    // All values of an ascending list are choices when its first and last are.
    const bool rises = !choices.empty() && isRising(choices);
    unusable_ = choices.size();
    if (!rises || !canBeChosen(choices.front()) || !canBeChosen(choices.back()))
        std::erase_if(choices, [this](double value) { return !canBeChosen(value); });
    unusable_ -= choices.size();
    if (choices.empty())
        return false;
    const Range ends = rises ? Range{choices.front(), choices.back()} : endsOf(choices);
    DriverOffer& offer = add(DriverOffer::Kind::List, ends);
    offer.choices = static_cast<std::uint32_t>(choices.size());
    if (values_.empty()) {
        begin(offer, std::move(choices));
    } else {
        commonValues(values_, std::move(choices), account_.removed);
        settle(offer);
    }
    return true;
}

void MergedChoices::narrow(DriverOffer& offer)
{
    const Range& range = offer.offered;
    const Range before = range_;
    if (!isKept(range_))
        range_ = range;
    else
        range_ = {largerOf(range.minimum, range_.minimum), smallerOf(range.maximum, range_.maximum)};
    if (!isKept(before))
        offer.effect = DriverOffer::Effect::Begins;
    else if (range_ != before)
        offer.effect = DriverOffer::Effect::Narrows;
    offer.kept = range_;
}

void MergedChoices::addRange(Range range)
{
    if (!std::isfinite(range.minimum) || !std::isfinite(range.maximum) || !isKept(range)) {
        add(DriverOffer::Kind::Nothing, {});
        return;
    }
    DriverOffer& offer = add(DriverOffer::Kind::Range, range);
    if (values_.empty())
        return narrow(offer);
    valuesInRange(values_, range, account_.removed);
    settle(offer);
}

void MergedChoices::addNone()
{
    unusable_ = 0;
    add(DriverOffer::Kind::NoTimebase, {});
}

OfferAccount MergedChoices::account() &&
{
    account_.common = static_cast<std::uint32_t>(values_.size());
    if (!values_.empty())
        account_.commonValues = endsOf(values_);
    account_.range = range_;
    return std::move(account_);
}

} // namespace ko
