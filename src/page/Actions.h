#pragma once

#include <cstdint>

namespace ko {

/// What one section of the page asks of another. The document answers.
class Actions {
public:
    /// Tells the host that the document's properties have changed, unless the page is being loaded. Failures reach
    /// the caller.
    virtual void markChanged() = 0;

    /// Brings the derived labels up to date and checks the 2 GB limit: 0 when the recording fits, else the number
    /// that, added to 1100, is the message's. Reports its own failures.
    virtual std::int32_t updateDiskSpace() = 0;

    /// Notes the start and stop settings that the drivers hold in the page's `triggerVars`, unless the page is
    /// read-only. Reports its own failures.
    virtual void captureStartStop() = 0;

protected:
    ~Actions() = default;
};

} // namespace ko
