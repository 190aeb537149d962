#pragma once

#include "interfaces/Values.h"

namespace ko {

/// A driver's connections to the 8 hardware trigger lines, numbered 0 to 7; a negative number means no line. A rank
/// rates the driver as a master: negative if it cannot be one, 10 is best.
class TriggerLines {
public:
    virtual std::int32_t StartMasterRank() = 0;
    /// The line that the driver drives as start master.
    virtual std::int32_t StartTriggerLine() = 0;
    virtual void setStartTriggerLine(std::int32_t line) = 0;
    /// The line on which the driver listens for the start trigger.
    virtual void setStartTriggerInput(std::int32_t line) = 0;
    virtual std::int32_t ScanMasterRank() = 0;
    /// The line that the driver drives as scan master.
    virtual std::int32_t ScanTriggerLine() = 0;
    virtual void setScanTriggerLine(std::int32_t line) = 0;
    /// The line on which the driver listens for the sync trigger.
    virtual void setScanTriggerInput(std::int32_t line) = 0;

    virtual LineList StartLinesAsMaster() = 0;
    virtual LineList ScanLinesAsListener() = 0;
    virtual LineList ScanLinesAsMaster() = 0;
    virtual LineList StartLinesAsListener() = 0;

protected:
    ~TriggerLines() = default;
};

} // namespace ko
