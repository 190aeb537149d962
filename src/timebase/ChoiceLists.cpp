#include "timebase/ChoiceLists.h"

#include "support/Numbers.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

bool isKept(Range range)
{
    return range.minimum > 0.0 || range.maximum > 0.0;
}

} // namespace

std::vector<double> commonValues(const std::vector<double>& a, std::vector<double> b)
{
    // Drivers mostly deliver their values in order.
    if (std::is_sorted(b.rbegin(), b.rend()))
        std::reverse(b.begin(), b.end());
    else if (!std::is_sorted(b.begin(), b.end()))
        std::sort(b.begin(), b.end());
    std::vector<double> common;
    std::copy_if(a.begin(), a.end(), std::back_inserter(common),
                 [&](double value) { return std::binary_search(b.begin(), b.end(), value); });
    return common;
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
    std::erase_if(choices, [](double value) { return !std::isfinite(value); });
    if (choices.empty())
        return false;
    if (!values_.empty())
        values_ = commonValues(values_, std::move(choices));
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
