#pragma once

#include "page/Actions.h"
#include "page/EarlierValues.h"
#include "page/Messages.h"
#include "page/Page.h"
#include "page/Timebases.h"

#include <algorithm>
#include <vector>

namespace ko {

/// Writes a value that the user entered to the drivers; the only code that does so. Each driver's old value is read,
/// the new one written and read back; then the 2 GB limit is checked once. Beyond it, a message is shown and each
/// driver's own old value is restored.
///
/// One object serves one event. If the host ends the document, hides the page or makes it read-only during the event, a
/// refused value is still restored; if it replaces the list, only in drivers that are also in the new list. Nothing
/// else is done once the list has been replaced or the document has ended.
///
/// A `Setting` is a value of optional members with these operations:
///     Setting read(const Steps&, Timebase&) const   reads from the driver the members that are set here; a member
///                                                   whose reading failed is not set
///     bool write(const Steps&, Timebase&) const     writes the members that are set; returns whether all writes
///                                                   succeeded
///     Setting without(const Setting&) const         the members that are set here and not set or different in the
///                                                   other
///     bool isEmpty() const                          no member is set
///     bool isLike(const Setting&) const             the same members are set in both
///     SizeSettings sizeSettings() const             the members that the size of the recording follows from
/// `read` and `write` report their failures to the steps.
template <class Setting> class GuardedWrite {
public:
    /// The result of the write to one driver.
    struct Written {
        IndexedTimebase at;
        const Driver* owner = nullptr; ///< of the timebase
        Setting before;                ///< as read before the write
        Setting kept;                  ///< as read back; equals `before` for a driver that was not written
        bool written = false;          ///< a write was attempted and every part of it succeeded
        bool tried = false;            ///< a write was attempted
    };

    /// `atMost` is the maximum number of drivers that will be written.
    /// `earlier`, unless null, notes what the drivers held; it must outlive this object.
    GuardedWrite(const Page& page, Support& support, Actions& actions, const Setting& wanted, std::size_t atMost,
                 EarlierValues<Setting>* earlier = nullptr)
        : page_(page), support_(support), actions_(actions), wanted_(wanted), earlier_(earlier)
    {
        written_.reserve(atMost);
    }

    /// Reads one driver, writes the missing part of the setting and reads back. `lacking(before)` returns the missing
    /// part; when it is empty, the driver is not written. `beforeFirst` runs once per event, before the first write.
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
        if (earlier_)
            earlier_->note(at.driver, it.before);
        it.written = change.write(step, *at.timebase);
        it.kept = wanted_.read(step, *at.timebase);
        anyWritten_ = anyWritten_ || it.written;
        return it;
    }
    /// Restores the drivers where a part of the write failed, without a check of the limit. For settings of more than
    /// one member.
    void restoreIncomplete(const Steps& step)
    {
        for (Written& it : written_)
            if (!it.written)
                restore(step, it);
    }

    /// Checks the limit; returns true when the recording fits. Otherwise shows a message, restores the changed members
    /// of each written driver (except those that could not be read before) and reads them again, calls `putBackPage`,
    /// offers what would fit, and returns false.
    template <class PutBack> bool fits(const Steps& step, PutBack&& putBack)
    {
        const std::int32_t code = actions_.updateDiskSpace();
        if (code == 0 || step.isSuperseded())
            return true;
        const LimitRefusal refused = refusal(code);
        step([&] { showLimitMessage(support_, code); });
        for (Written& it : written_)
            restore(step, it);
        if (step.isSuperseded())
            return false;
        putBackPage(step, std::forward<PutBack>(putBack));
        actions_.tellWhatFits(refused);
        return false;
    }

    /// Restores the page by `putBack` after the drivers were restored, notifies the host when a driver may hold another
    /// value than before, and updates the derived labels.
    template <class PutBack> void putBackPage(const Steps& step, PutBack&& putBack)
    {
        step(std::forward<PutBack>(putBack));
        if (leavesOther())
            step([&] { actions_.markChanged(); });
        actions_.refreshEstimate();
    }

    /// The drivers of this event, in order of `write`.
    [[nodiscard]] const std::vector<Written>& drivers() const { return written_; }
    /// Whether a write was attempted in this event, and whether one succeeded.
    [[nodiscard]] bool anyTried() const { return anyTried_; }
    [[nodiscard]] bool anyWritten() const { return anyWritten_; }
    /// Whether a driver holds another value than before this event; for one that could not be read before or after,
    /// whether the write succeeded.
    [[nodiscard]] bool leavesOther() const
    {
        return std::any_of(written_.begin(), written_.end(), [&](const Written& it) {
            const bool isKnown = it.before.isLike(wanted_) && it.kept.isLike(wanted_);
            return it.tried && (isKnown ? !it.kept.without(it.before).isEmpty() : it.written);
        });
    }

private:
    /// Must be called while the refused values are in force.
    [[nodiscard]] LimitRefusal refusal(std::int32_t code) const
    {
        LimitRefusal refused{.code = code, .wanted = wanted_.sizeSettings(), .tried = {}};
        refused.wanted.ofEveryDriver = written_.size() > 1;
        for (const DriverFigures& driver : page_.figures.drivers)
            refused.tried.push_back({{}, driver.bytes});
        for (const Written& it : written_)
            if (const auto driver = static_cast<std::size_t>(it.at.driver); it.tried && driver < refused.tried.size())
                refused.tried[driver].kept = it.kept.sizeSettings();
        return refused;
    }
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
    EarlierValues<Setting>* earlier_;
    std::vector<Written> written_;
    bool anyTried_ = false, anyWritten_ = false;
};

} // namespace ko
