#pragma once

#include "page/Drivers.h"
#include "page/Page.h"
#include "support/Support.h"
#include "triggering/LineUse.h"

namespace ko {

/// The indices of the drivers that drive the start and the sync trigger line, and the lines that they already drive; -1
/// for none.
struct TriggerMasters : PerTrigger<std::int32_t> {
    PerTrigger<std::int32_t> driven{-1, -1};

    [[nodiscard]] bool found() const { return start >= 0 || scan >= 0; }
    bool operator==(const TriggerMasters&) const = default;
};

/// The trigger-line module. Every procedure reports its own failures and continues; a driver without the trigger-line
/// interface is ignored.
class Triggering {
public:
    explicit Triggering(Support& support) : support_(support) {}

    /// Finds the masters: drivers that already drive a line come first, then the highest rank, then list order. A
    /// driver that fails, or drives a line above 7, is ignored.
    TriggerMasters findTriggerMasters(Drivers drivers);

    /// The lines that the master (-1: none) can drive for the trigger, and those on which the other drivers can listen.
    /// Without a master that has trigger lines, no driver is queried.
    UsableLinesByDriver buildTriggerList(LineTrigger trigger, Drivers drivers, std::int32_t master);

    /// The result of writing a line.
    struct WrittenLine {
        std::int32_t line = -1; ///< read back from the master
        bool written = false;   ///< the master accepted the write
    };
    /// Makes the master drive the line (-1: none) and every other driver listen on the line that it then drives. When
    /// that cannot be read back, it is assumed to be the line written, or `before` when the write failed. Without a
    /// master (-1), the start trigger uses the first driver that can be start master, skipping drivers that fail; for
    /// the sync trigger nothing is done.
    WrittenLine setTriggerLine(LineTrigger trigger, Drivers drivers, std::int32_t master, std::int32_t line,
                               std::int32_t before);

private:
    Support& support_;
};

} // namespace ko
