#pragma once

#include "page/Page.h"
#include "page/Timebases.h"

#include <utility>
#include <vector>

namespace ko {

/// What each driver held before the user typed in the focused box, as `GuardedWrite` read it before the first write to
/// that driver. Escape writes it back. `Setting` as for `GuardedWrite`.
template <class Setting> class EarlierValues {
public:
    explicit EarlierValues(const Page& page) : page_(page) {}

    /// Called when the box gets the focus: forgets the values.
    void clear() { values_.clear(); }
    /// Called with the values read before a write; those of the first write to the driver count.
    void note(std::int32_t driver, const Setting& before)
    {
        const auto index = static_cast<std::size_t>(driver);
        if (values_.size() <= index)
            values_.resize(page_.currentDrivers().size());
        if (index < values_.size() && values_[index].isEmpty())
            values_[index] = before;
    }

    /// Writes to each driver its own earlier values where it holds others, and forgets them. The limit is not checked:
    /// the values were in force before. Failures are reported to `step`. Returns whether a write was attempted.
    bool writeBack(const Steps& step)
    {
        bool any = false;
        const std::vector<Setting> values = std::exchange(values_, {});
        if (values.empty())
            return false;
        forEachTimebase(step, page_.currentDrivers(), [&](const IndexedTimebase& at) {
            const auto index = static_cast<std::size_t>(at.driver);
            if (index >= values.size() || values[index].isEmpty())
                return;
            const Setting change = values[index].without(values[index].read(step, *at.timebase));
            if (change.isEmpty())
                return;
            any = true;
            change.write(step, *at.timebase);
        });
        return any;
    }

private:
    const Page& page_;
    std::vector<Setting> values_; ///< by the driver's index; empty: not written
};

} // namespace ko
