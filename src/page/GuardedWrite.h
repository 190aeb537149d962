#pragma once

#include "page/Actions.h"
#include "page/Messages.h"
#include "page/Page.h"
#include "page/Timebases.h"

#include <algorithm>
#include <vector>

namespace ko {

/// The one way in which a value that the user enters reaches the drivers: each driver's old value is read, the new one
/// written and read back; then the 2 GB limit is asked once. Beyond it a message is shown and each driver gets its own
/// old value back.
///
/// One object serves one event. When the host ends the document meanwhile, hides the page or makes it read-only, a
/// value that is refused is put back all the same; when it hands over another list, only in drivers that are in that
/// list, too. Once the list or the document is another nothing else is done.
///
/// A `Setting` is a value of optional members with these operations:
///     Setting read(const Steps&, Timebase&) const   the members that are set here, as the driver has them; a member
///                                                   whose reading failed is not set
///     bool write(const Steps&, Timebase&) const     writes the members that are set; whether all writes succeeded
///     Setting without(const Setting&) const         the members that are set here and that the other lacks or has
///                                                   otherwise
///     bool isEmpty() const                          no member is set
/// The first two report their failures to the steps.
template <class Setting> class GuardedWrite {
public:
    /// What became of the value at one driver.
    struct Written {
        IndexedTimebase at;
        const Driver* owner = nullptr; ///< of the timebase
        Setting before;                ///< as read before the write
        Setting kept;                  ///< as read back; `before` for a driver that was not written
        bool written = false;          ///< a write was made and every part of it succeeded
        bool tried = false;            ///< a write was made
    };

    /// `atMost` drivers of the page's list are going to be written.
    GuardedWrite(const Page& page, Support& support, Actions& actions, const Setting& wanted, std::size_t atMost)
        : page_(page), support_(support), actions_(actions), wanted_(wanted)
    {
        written_.reserve(atMost);
    }

    /// Reads one driver, writes what it lacks and reads it back: `lacking(before)` is that part of the setting. A
    /// driver that lacks nothing is not written. `beforeFirst` runs once an event, before the first write.
    template <class Lacking, class First>
    const Written& write(const Steps& step, IndexedTimebase at, Lacking&& lacking, First&& beforeFirst)
    {
        Written& it = written_.emplace_back();
        it.at = at;
        it.owner = page_.driverAt(at.driver);
        it.kept = it.before = wanted_.read(step, *at.timebase);
        const Setting change = lacking(std::as_const(it.before));
        if (change.isEmpty())
            return it;
        if (!std::exchange(anyTried_, true))
            beforeFirst();
        if (step.isSuperseded())
            return it;
        it.tried = true;
        it.written = change.write(step, *at.timebase);
        it.kept = wanted_.read(step, *at.timebase);
        anyWritten_ = anyWritten_ || it.written;
        return it;
    }
    /// Where a part of the write failed, what the other parts changed goes back to its old value without a question.
    /// For settings of more than one member.
    void restoreIncomplete(const Steps& step)
    {
        for (Written& it : written_)
            if (!it.written)
                restore(step, it);
    }

    /// Asks the limit. Within it: true. Beyond it a message is shown, each driver that was written gets back the
    /// members that changed (not those that could not be read before) and is read again, `putBack` restores what the
    /// page shows, the derived labels follow, and what would fit is offered: false.
    template <class PutBack> bool fits(const Steps& step, PutBack&& putBack)
    {
        const std::int32_t code = actions_.updateDiskSpace();
        if (code == 0 || step.isSuperseded())
            return true;
        step([&] { showLimitMessage(support_, code); });
        for (Written& it : written_)
            restore(step, it);
        if (step.isSuperseded())
            return false;
        step(std::forward<PutBack>(putBack));
        actions_.refreshEstimate();
        actions_.tellWhatFits(code);
        return false;
    }

    /// The drivers of this event, in the order in which they were written.
    [[nodiscard]] const std::vector<Written>& drivers() const { return written_; }
    /// Whether a write was made in this event, and whether one succeeded.
    [[nodiscard]] bool anyTried() const { return anyTried_; }
    [[nodiscard]] bool anyWritten() const { return anyWritten_; }

private:
    void restore(const Steps& step, Written& it)
    {
        const Setting changed = it.tried ? it.before.without(it.kept) : Setting{};
        if (changed.isEmpty() || (step.hasOtherList() && !isListed(it.owner)))
            return;
        const Steps again(support_.errors, step.procedure(), Steps::Begin::ToTheEnd);
        changed.write(again, *it.at.timebase);
        it.kept = wanted_.read(again, *it.at.timebase);
    }
    [[nodiscard]] bool isListed(const Driver* driver) const
    {
        const Drivers drivers = page_.currentDrivers();
        return std::any_of(drivers.begin(), drivers.end(), [&](const auto& listed) { return listed.get() == driver; });
    }

    const Page& page_;
    Support& support_;
    Actions& actions_;
    Setting wanted_;
    std::vector<Written> written_;
    bool anyTried_ = false, anyWritten_ = false;
};

} // namespace ko
