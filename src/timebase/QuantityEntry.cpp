#include "timebase/QuantityEntry.h"

namespace ko {

std::optional<double> QuantityEntry::held()
{
    const IndexedTimebase at = shownTimebase(page(), *quantity_.number);
    return at ? std::optional((at.timebase->*quantity_.number->get)()) : std::nullopt;
}

Range QuantityEntry::hintRange()
{
    const NumberBounds range = bounds();
    if (!quantity_.number->toAllDrivers || !range.minimum || !range.maximum)
        return NumberEntry::hintRange();
    return {*range.minimum, *range.maximum};
}

void QuantityEntry::showOutcome(const Steps& step, std::optional<double> inForce, double requested, bool refused)
{
    editors_.showInBoxes(step, inForce.value_or(requested), &box());
    if (!inForce) {
        editors_.markUnknown();
        return;
    }
    step([&] {
        if (refused)
            showSelected(*inForce);
        else
            show(*inForce);
    });
}

} // namespace ko
