#pragma once

#include "page/Actions.h"
#include "page/EarlierValues.h"
#include "page/Quantities.h"

#include <functional>

namespace ko {

/// The result of writing a number to every driver that has a timebase.
struct WrittenToAll {
    std::optional<double> last; ///< read back from the last of them
    bool written = false;       ///< at least one driver accepted the write
    bool refused = false;       ///< beyond the limit: a message was shown, and every driver has its old number
};

/// Writes a number to every driver, except those for whose number `holds` is true. `beforeFirst` runs before the first
/// write; `earlier` as for `GuardedWrite`. Without `holds` the limit is checked even if no driver has a timebase.
WrittenToAll writeToAll(const Steps& step, Page& page, Support& support, Actions& actions, const NumberSetting& wanted,
                        const std::function<bool(const std::optional<double>&)>& holds,
                        const std::function<void()>& beforeFirst, EarlierValues<NumberSetting>* earlier = nullptr);

} // namespace ko
