#pragma once

#include "page/GuardedWrite.h"
#include "page/Page.h"
#include "schedule/CapturedSettings.h"
#include "support/Support.h"

#include <functional>

namespace ko {

/// The schedule on the page and in the drivers; writes changes from the page to the drivers. Failures reach the caller
/// unless a `Steps` is passed.
class Recording {
public:
    /// The result of a change.
    enum class Result : std::uint8_t {
        Held,    ///< every driver already holds it; nothing was written
        Taken,   ///< the change is in force
        PutBack, ///< it exceeds the limit or no driver accepted it; the old values are in force and shown
    };
    /// Returns the part of a change that a driver with these values does not hold.
    using Lacking = std::function<StartStopSettings(const StartStopSettings& before)>;

    Recording(Page& page, Support& support, Actions& actions, CapturedSettings& captured)
        : page_(page), support_(support), actions_(actions), captured_(captured)
    {
    }

    /// Reads the date or time of day in a time box.
    [[nodiscard]] DateTime timeIn(const TextBox& box) const;

    /// The duration entered on the page, in seconds; may be 0 or negative when stopping at a time.
    [[nodiscard]] double getDurationSeconds() const;

    /// The duration entered, as the drivers keep it if that is known. When the page lacks a time or the duration, the
    /// duration that the drivers hold; none when that is unknown, too.
    [[nodiscard]] std::optional<double> plannedSeconds() const;

    /// `start` plus a duration, as General Date text. A time of day that passes midnight is first given today's date.
    [[nodiscard]] std::string computeStopTime(double seconds, DateTime start) const;

    /// The duration that the drivers hold, in seconds; without a timebase the last accepted one.
    [[nodiscard]] std::optional<double> durationInForce() const;
    /// As above, but a failure is reported and the last accepted duration returned.
    [[nodiscard]] std::optional<double> durationInForce(const Steps& step) const;
    /// The duration read back by `write`, without calling a driver.
    [[nodiscard]] std::optional<double> durationReadBack() const;
    /// Whether the duration was read from a driver, or accepted, since the page was built.
    [[nodiscard]] bool isDurationKnown() const { return accepted_.seconds.has_value(); }

    /// Called when the drivers hold this duration: shows it in an empty box, and updates plan and labels if they showed
    /// another.
    void follow(const Steps& step, double seconds);

    /// Sets an empty start time to the current time of day. Returns whether it was empty.
    bool fillStartTime();

    /// Sets a stop time that is missing or not later than the start to the start plus the duration entered, or clears
    /// it while that is unknown. Returns whether the text changed.
    bool fillStopTime();

    /// The start time entered. For a stop at a time, also calls `fillStopTime`.
    [[nodiscard]] DateTime enteredStart();

    /// Sets the text of a time box without running its change handler.
    void show(TextBox& box, const std::string& text);

    /// Writes to each driver the part of a change that it does not hold (by default the members that differ), shows
    /// what the drivers then hold and checks the limit once. A driver that accepted only a part gets its old values
    /// back. Beyond the limit, shows a message and restores each driver's own old values. Then, and when no driver
    /// accepted its whole part, `putBack` restores the page and the derived labels are updated. `earlier` as for
    /// `GuardedWrite`.
    Result write(const Steps& step, const StartStopSettings& change, const std::function<void()>& putBack,
                 const Lacking& lacking = {}, EarlierValues<StartStopSettings>* earlier = nullptr);

    /// Called after a change that was not put back: records what the page shows as accepted, captures the settings, and
    /// notifies the host of a change in force; for a change that all drivers already held, only updates the labels.
    void accepted(const Steps& step, Result result);

    /// `write`, then `accepted` unless the change was put back.
    Result commit(const Steps& step, const StartStopSettings& change, const std::function<void()>& putBack,
                  const Lacking& lacking = {}, EarlierValues<StartStopSettings>* earlier = nullptr);

    /// Called after the drivers got back an earlier duration: reads it, then as after a change in force.
    void restored(const Steps& step);

    /// Updates the derived labels when nothing is written.
    void refreshLabels() { actions_.refreshEstimate(); }

    /// Called after the page was built and shows these settings, as far as they are known; a later refusal returns to
    /// them.
    void loaded(const Steps& step, const StartStopSettings& shown);

    /// Whether the stop mode was read from a driver, or written, since the page was built. The stop mode counts as
    /// unknown while the start mode is unknown.
    [[nodiscard]] bool isStopModeKnown() const { return isStopModeKnown_; }

    /// Restores the options and both times that were last accepted.
    void putBack();
    void putBackStartTime() { show(page_.txtStartTime, accepted_.startTime); }
    void putBackStopTime() { show(page_.txtStopTime, accepted_.stopTime); }

private:
    /// A duration entered, and the one that the drivers keep for it.
    struct Kept {
        double entered = 0.0;
        double seconds = 0.0;
    };
    /// What the page shows and the drivers hold, to which a refusal returns.
    struct Accepted {
        OptionButton* start = nullptr; ///< null while the start mode is unknown
        OptionButton* stop = nullptr;
        std::string startTime, stopTime;
        std::optional<double> seconds = 0.0;
    };

    [[nodiscard]] DateTime onToday(DateTime time) const;
    [[nodiscard]] bool isEntered() const;
    [[nodiscard]] bool lacksStopTime() const;
    void accept(std::optional<double> seconds);
    void showKept(const Steps& step, const StartStopSettings& kept);
    void showModes(const StartStopSettings& kept);
    void showDuration(double seconds);
    /// Notes that the drivers keep this duration for the one entered on the page.
    void keep(double seconds);

    Page& page_;
    Support& support_;
    Actions& actions_;
    CapturedSettings& captured_;
    StartStopSettings readBack_; ///< by the last write, from the first driver, whose settings are shown for all
    std::optional<Kept> kept_;
    Accepted accepted_;
    bool isStopModeKnown_ = false;
};

} // namespace ko
