#pragma once

#include "timebase/ChoiceLists.h"

namespace ko::test {

using Values = std::vector<double>;

/// The offer of a driver: a list, or a range if the list is empty.
struct Offer {
    Values list;
    Range range;
};

inline MergedChoices merged(const std::vector<Offer>& offers)
{
    MergedChoices choices(offers.size());
    for (const Offer& offer : offers)
        if (!choices.addList(offer.list))
            choices.addRange(offer.range);
    return choices;
}

} // namespace ko::test
