#include "timebase/WriteToAll.h"

#include "page/GuardedWrite.h"

namespace ko {

WrittenToAll writeToAll(const Steps& step, Page& page, Support& support, Actions& actions, const NumberSetting& wanted,
                        const std::function<bool(const std::optional<double>&)>& holds,
                        const std::function<void()>& beforeFirst, EarlierValues<NumberSetting>* earlier)
{
    OfferAccount& offers = page.*wanted.number->offers;
    const Drivers drivers = page.currentDrivers();
    GuardedWrite<NumberSetting> guarded(page, support, actions, wanted, drivers.size(), earlier);
    WrittenToAll result;
    forEachTimebase(step, drivers, [&](IndexedTimebase at) {
        const auto& it = guarded.write(
            step, at,
            [&](const NumberSetting& before) { return holds && holds(before.value) ? NumberSetting{} : wanted; },
            beforeFirst);
        result.last = it.kept.value;
        if (it.tried)
            offers.noteWritten(at.driver, *wanted.value, it.kept.value);
        else
            offers.noteRead(at.driver, it.kept.value);
    });
    result.written = guarded.anyWritten();
    if (holds && !guarded.anyTried())
        return result;
    const auto noteRestored = [&] {
        for (const auto& it : guarded.drivers())
            if (it.tried && it.before.value)
                offers.noteWritten(it.at.driver, *it.before.value, it.kept.value);
    };
    if (!guarded.fits(step, noteRestored)) {
        result.refused = true;
        result.last = guarded.drivers().empty() ? std::nullopt : guarded.drivers().back().kept.value;
    }
    return result;
}

} // namespace ko
