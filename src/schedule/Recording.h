#pragma once

#include "page/GuardedWrite.h"
#include "page/Page.h"
#include "schedule/CapturedSettings.h"
#include "support/Support.h"

#include <functional>

namespace ko {

/// The schedule as the page shows it and as the drivers hold it, and the one way from the first to the second. All
/// failures reach the caller unless a `Steps` is passed.
class Recording {
public:
    /// What became of a change.
    enum class Result : std::uint8_t {
        Held,    ///< every driver holds it already: nothing was written
        Taken,   ///< it is in force
        PutBack, ///< it exceeds the limit, or no driver took it: the old values are in force and shown
    };
    /// The part of a change that a driver with these values lacks.
    using Lacking = std::function<StartStopSettings(const StartStopSettings& before)>;

    Recording(Page& page, Support& support, Actions& actions, CapturedSettings& captured)
        : page_(page), support_(support), actions_(actions), captured_(captured)
    {
    }

    /// The date or time of day in a time box.
    [[nodiscard]] DateTime timeIn(const TextBox& box) const;

    /// The duration entered on the page, in seconds; may be 0 or negative when stopping at a time.
    [[nodiscard]] double getDurationSeconds() const;

    /// The same as the drivers keep it, as far as that is known; what they hold where the page lacks a time or the
    /// duration; none where that is not known either.
    [[nodiscard]] std::optional<double> plannedSeconds() const;

    /// `start` plus a duration. Where a time of day runs over midnight it is taken on today's date.
    [[nodiscard]] DateTime stopTime(double seconds, DateTime start) const;
    /// The same as General Date text.
    [[nodiscard]] std::string computeStopTime(double seconds, DateTime start) const;

    /// The duration that the drivers hold, in seconds; without a timebase the one last accepted.
    [[nodiscard]] std::optional<double> durationInForce() const;
    /// The same; where it cannot be read, which is reported, the one last accepted.
    [[nodiscard]] std::optional<double> durationInForce(const Steps& step) const;
    /// The same without asking a driver, as `write` has read it back.
    [[nodiscard]] std::optional<double> durationReadBack() const;
    /// Whether the duration was read from a driver, or accepted, since the page was built.
    [[nodiscard]] bool isDurationKnown() const { return accepted_.seconds.has_value(); }

    /// The drivers hold this duration: an empty box shows it, and plan and labels follow when they showed another.
    void follow(const Steps& step, double seconds);

    /// An empty start time becomes the time of day.
    void fillStartTime();

    /// A stop time that is missing or not later than the start becomes the start plus the duration entered;
    /// empty while that is not known.
    void fillStopTime();

    /// The start time entered; for a stop at a time, its time is filled in where it is missing or not later.
    [[nodiscard]] DateTime enteredStart();

    /// Sets the text of a time box without the handlers of a change.
    void show(TextBox& box, const std::string& text);

    /// Writes each driver the part of a change that it lacks (none: the members that it has otherwise), shows what the
    /// drivers keep of it and asks the limit once. Beyond it the user is told and each driver gets its own values back,
    /// as one does that took only a part; then, and where no driver took its whole part, `putBack` restores what the
    /// page showed and the derived labels follow.
    Result write(const Steps& step, const StartStopSettings& change, const std::function<void()>& putBack,
                 const Lacking& lacking = {});

    /// After a change that was not put back: what the page shows counts as accepted and the settings are captured. The
    /// host is notified of a change that was taken; for one that all drivers held the labels follow.
    void accepted(const Steps& step, Result result);

    /// Both in one.
    Result commit(const Steps& step, const StartStopSettings& change, const std::function<void()>& putBack,
                  const Lacking& lacking = {});

    /// Brings the derived labels up to date where nothing is written.
    void refreshLabels() { actions_.refreshEstimate(); }

    /// The page was built, and shows these settings as far as they are known: what a later refusal returns to.
    void loaded(const Steps& step, const StartStopSettings& shown);

    /// Whether the stop mode was read from a driver, or written, since the page was built. While the start mode is not
    /// known, the stop mode is not known either.
    [[nodiscard]] bool isStopModeKnown() const { return isStopModeKnown_; }

    /// Puts the options and both times back as they were last accepted.
    void putBack();
    void putBackStartTime() { show(page_.txtStartTime, accepted_.startTime); }
    void putBackStopTime() { show(page_.txtStopTime, accepted_.stopTime); }

private:
    /// What the drivers keep of a duration that is entered.
    struct Kept {
        double entered = 0.0;
        double seconds = 0.0;
    };
    /// What the page shows and the drivers hold.
    struct Accepted {
        OptionButton* start = nullptr; ///< none while the start mode is not known
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
