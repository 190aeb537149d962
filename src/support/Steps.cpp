#include "support/Steps.h"

namespace ko {

/// Drivers of old lists may call back while they are destroyed, so kept_ is emptied first.
Steps::~Steps()
{
    Events& events = errors_.events;
    events.innermost_ = outer_;
    events.isInStatement_ = outerIsInStatement_;
    if (outer_)
        return;
    if (std::exchange(events.isUnsettled_, false) && !events.isEnded_ && events.settle)
        events.settle();
    if (!events.kept_.empty())
        const auto kept = std::exchange(events.kept_, {});
}

void Steps::reportCurrent() const noexcept
{
    ended_ = !errors_.reportCurrent(sourceText_, procedure_);
}

} // namespace ko
