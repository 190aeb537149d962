#pragma once

#include "page/Drivers.h"
#include "page/Page.h"
#include "support/Support.h"
#include "triggering/LineUse.h"

namespace ko {

/// Which drivers of a list drive the start and the sync trigger line; -1 none.
struct TriggerMasters {
    std::int32_t start = -1;
    std::int32_t scan = -1;

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

    /// The lines that the start master can drive and all others can listen to. The sync line, when there is one, is
    /// left out; when there is none, it becomes the one that the survey found, which is not left out.
    LineMask buildStartTriggerList(Drivers drivers, std::int32_t startMaster, std::int32_t& scanLine);
    /// The same with the roles of start and sync exchanged.
    LineMask buildScanTriggerList(Drivers drivers, std::int32_t scanMaster, std::int32_t& startLine);

    /// What the drivers offered when the two lists were built last.
    [[nodiscard]] const LineOffers& startOffers() const { return startOffers_; }
    [[nodiscard]] const LineOffers& scanOffers() const { return scanOffers_; }

    /// Lets the master drive the line and every other driver listen to it; -1 for none. Without a master (-1) the
    /// first driver that can be start master is taken; a driver that fails while it is looked for is passed over.
    void setStartTriggerLine(Drivers drivers, std::int32_t master, std::int32_t line);
    /// The same for the sync trigger; without a master nothing is done.
    void setScanTriggerLine(Drivers drivers, std::int32_t master, std::int32_t line);

private:
    Support& support_;
    std::int32_t masterStartLine_ = -1; ///< what the masters were found to drive
    std::int32_t masterScanLine_ = -1;
    LineOffers startOffers_;
    LineOffers scanOffers_;
};

} // namespace ko
