#include "timebase/QuantityEntry.h"

namespace ko {

std::optional<double> QuantityEntry::held()
{
    const IndexedTimebase at = shownTimebase(page(), *quantity_.number);
    if (!at)
        return std::nullopt;
    const double held = (at.timebase->*quantity_.number->get)();
    (page().*quantity_.number->offers).noteRead(at.driver, held);
    return held;
}

Range QuantityEntry::hintRange()
{
    const NumberBounds range = bounds();
    if (!quantity_.number->toAllDrivers || !range.minimum || !range.maximum)
        return NumberEntry::hintRange();
    return {*range.minimum, *range.maximum};
}

bool QuantityEntry::writeEarlier(const Steps& step)
{
    OfferAccount& offers = page().*quantity_.number->offers;
    return earlier_.writeBack(step, [&](std::int32_t driver, const NumberSetting& earlier, const NumberSetting& now) {
        offers.noteWritten(driver, *earlier.value, now.value);
    });
}

void QuantityEntry::show(const Steps& step, const Result& result)
{
    if (result.inForce || result.written)
        editors_.showInBoxes(step, result.inForce.value_or(result.requested), &box());
    if (!result.inForce)
        return editors_.markUnknown();
    step([&] {
        if (result.refused)
            showSelected(*result.inForce);
        else
            NumberEntry::show(*result.inForce);
    });
}

} // namespace ko
