#pragma once

#include "page/Drivers.h"
#include "page/Page.h"
#include "support/Support.h"
#include "triggering/LineUse.h"

namespace ko {

/// Which drivers of a list drive the start and the sync trigger line, and the lines on which they were found to do so
/// already; -1 none.
struct TriggerMasters : PerTrigger<std::int32_t> {
    PerTrigger<std::int32_t> driven{-1, -1};

    [[nodiscard]] bool found() const { return start >= 0 || scan >= 0; }
    bool operator==(const TriggerMasters&) const = default;
};

/// The trigger-line module: one for all documents of a component. Every procedure reports its own failures and goes
/// on; a driver without the trigger-line interface takes no part.
class Triggering {
public:
    explicit Triggering(Support& support) : support_(support) {}

    /// Looks for the masters anew: drivers that are wired as such already come first, then the best rank, the
    /// earlier driver among equals. A driver that fails, or that is wired to a line beyond 7, takes no part.
    TriggerMasters findTriggerMasters(Drivers drivers);

    /// What the master (-1: none) can drive for the trigger, and what the others can listen to. Without a master that
    /// has trigger lines no driver is asked.
    LineOffers buildTriggerList(LineTrigger trigger, Drivers drivers, std::int32_t master);

    /// What became of a line that was written.
    struct WrittenLine {
        std::int32_t line = -1; ///< as the master was read back
        bool written = false;   ///< the master took the write
    };
    /// Lets the master drive the line and every other driver listen to what it drives then; -1 for none. Where it
    /// cannot be read back, that is the line that it took, or else `before`. Without a master (-1) the first driver
    /// that can be start master is taken, a driver that fails while it is looked for being passed over; for the sync
    /// trigger nothing is done.
    WrittenLine setTriggerLine(LineTrigger trigger, Drivers drivers, std::int32_t master, std::int32_t line,
                               std::int32_t before);

private:
    Support& support_;
};

} // namespace ko
