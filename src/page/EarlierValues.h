#pragma once

#include "page/Page.h"
#include "page/Timebases.h"

#include <optional>
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
        if (index < values_.size() && !values_[index])
            values_[index] = before;
    }

    /// Writes to each driver its own earlier values where it holds others. The limit is not checked:
    /// the values were in force before. `kept(driver, earlier, now)` is called with what each driver written then
    /// holds. Failures are reported to `step`. Returns whether a write was attempted.
    template <class Kept> bool writeBack(const Steps& step, Kept&& kept)
    {
        bool any = false;
        // The host may move the focus inside a call.
        const auto values = values_;
        forEachTimebase(step, page_.currentDrivers(), [&](const IndexedTimebase& at) {
            const auto index = static_cast<std::size_t>(at.driver);
            if (index >= values.size() || !values[index] || values[index]->isEmpty())
                return;
            const Setting& earlier = *values[index];
            const Setting change = earlier.without(earlier.read(step, *at.timebase));
            if (change.isEmpty())
                return;
            any = true;
            change.write(step, *at.timebase);
            kept(at.driver, earlier, earlier.read(step, *at.timebase));
        });
        return any;
    }

private:
    const Page& page_;
    /// By the driver's index; none: not written since the focus. An empty setting could not be read.
    std::vector<std::optional<Setting>> values_;
};

} // namespace ko
