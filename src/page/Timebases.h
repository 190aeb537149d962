#pragma once

#include "interfaces/Timebase.h"
#include "page/Drivers.h"
#include "support/Steps.h"

#include <utility>

namespace ko {

/// A driver's timebase and the driver's index in its list; -1 and null for none.
struct IndexedTimebase {
    std::int32_t driver = -1;
    Timebase* timebase = nullptr;
    bool isAfterFailing = false; ///< an earlier driver was skipped because it failed

    explicit operator bool() const { return timebase != nullptr; }
};

/// Calls `visit(IndexedTimebase)` for each driver of the list that offers a timebase, in list order. A failing query is
/// reported to `step`, and that driver is skipped.
template <class Visit> void forEachTimebase(const Steps& step, Drivers drivers, Visit&& visit)
{
    for (std::size_t i = 0; i < drivers.size(); ++i)
        if (drivers[i])
            if (Timebase* timebase = step.value([&] { return drivers[i]->queryTimebase(); }))
                visit(IndexedTimebase{.driver = static_cast<std::int32_t>(i), .timebase = timebase});
}

/// The first timebase for which `accepts(Driver&, Timebase&)` returns true; a driver whose query or test fails is
/// skipped without a report.
template <class Accepts> IndexedTimebase firstTimebase(Drivers drivers, Accepts&& accepts)
{
    bool anyFailed = false;
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        try {
            Timebase* timebase = drivers[i] ? drivers[i]->queryTimebase() : nullptr;
            if (timebase && accepts(*drivers[i], *timebase))
                return {static_cast<std::int32_t>(i), timebase, anyFailed};
        } catch (...) {
            anyFailed = true;
        }
    }
    return {-1, nullptr, anyFailed};
}

/// The first timebase of the list, whose settings are shown for all drivers.
inline IndexedTimebase firstTimebase(Drivers drivers)
{
    return firstTimebase(drivers, [](Driver&, Timebase&) { return true; });
}

} // namespace ko
