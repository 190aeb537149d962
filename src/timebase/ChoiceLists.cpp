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

bool canBeChosen(double value)
{
    return value > 0.0 && std::isfinite(value);
}

bool isRising(const std::vector<double>& list)
{
    bool rises = true;
    for (std::size_t i = 1; i < list.size(); ++i)
        rises &= list[i - 1] <= list[i];
    return rises;
}

/// Leaves in `a` what also stands in `[b, end)`, both in the order of `before`.
template <class Iterator, class Before> void keepCommon(std::vector<double>& a, Iterator b, Iterator end, Before before)
{
    auto kept = a.begin();
    for (auto next = a.begin(); next != a.end() && b != end;) {
        if (before(*b, *next))
            ++b;
        else if (*b == *next)
            *kept++ = *next++;
        else
            ++next;
    }
    a.erase(kept, a.end());
}

} // namespace

std::vector<double> commonValues(std::vector<double> a, std::vector<double> b)
{
    // Drivers of one make deliver one list, and all mostly in order.
    if (a == b)
        return a;
    if (!isRising(b)) {
        std::reverse(b.begin(), b.end());
        if (!isRising(b))
            std::sort(b.begin(), b.end());
    }
    if (isRising(a))
        keepCommon(a, b.begin(), b.end(), std::less<>());
    else if (std::is_sorted(a.rbegin(), a.rend()))
        keepCommon(a, b.rbegin(), b.rend(), std::greater<>());
    else
        std::erase_if(a, [&](double value) { return !std::binary_search(b.begin(), b.end(), value); });
    return a;
}

std::vector<double> valuesInRange(const std::vector<double>& list, Range range)
{
    std::vector<double> inside;
    std::copy_if(list.begin(), list.end(), std::back_inserter(inside),
                 [&](double value) { return range.minimum <= value && value <= range.maximum; });
    return inside;
}

bool MergedChoices::addList(std::vector<double> choices)
{
    // A rising list holds nothing but choices when both of its ends are.
    const bool areAll =
        !choices.empty() && isRising(choices) && canBeChosen(choices.front()) && canBeChosen(choices.back());
    if (!areAll)
        std::erase_if(choices, [](double value) { return !canBeChosen(value); });
    if (choices.empty())
        return false;
    if (!values_.empty())
        values_ = commonValues(std::move(values_), std::move(choices));
    else if (isKept(range_))
        values_ = valuesInRange(choices, range_);
    else
        values_ = std::move(choices);
    return true;
}

void MergedChoices::addRange(Range range)
{
    if (!std::isfinite(range.minimum) || !std::isfinite(range.maximum) || !isKept(range))
        return;
    if (!values_.empty())
        values_ = valuesInRange(values_, range);
    else if (!isKept(range_))
        range_ = range;
    else
        range_ = {largerOf(range.minimum, range_.minimum), smallerOf(range.maximum, range_.maximum)};
}

} // namespace ko
