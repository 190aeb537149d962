#pragma once

#include "page/Actions.h"
#include "page/NumberEntry.h"
#include "page/Page.h"
#include "schedule/ScheduleWriter.h"
#include "support/Support.h"

#include <functional>

namespace ko {

/// The schedule as the page shows it and as the drivers hold it, and the one way from the first to the second. All
/// failures reach the caller unless a `Steps` is passed.
class Recording {
public:
    Recording(Page& page, Support& support, Actions& actions) : page_(page), support_(support), actions_(actions) {}

    /// The date or time of day in a time box.
    [[nodiscard]] DateTime timeIn(const TextBox& box) const;

    /// The duration entered on the page, in seconds; may be 0 or negative when stopping at a time.
    [[nodiscard]] double getDurationSeconds() const;

    /// `start` plus `amount` units ('s', 'n', 'h', 'd') as General Date text.
    [[nodiscard]] std::string computeStopTime(char unit, double amount, DateTime start) const;

    /// The duration that the drivers hold, in seconds; without a timebase the one last accepted.
    [[nodiscard]] Held durationInForce() const;

    /// An empty start time becomes the time of day.
    void fillStartTime();

    /// A stop time that is missing or not later than the start becomes the start plus the duration entered.
    void fillStopTime();

    /// Sets the text of a time box without the handlers of a change.
    void show(TextBox& box, const std::string& text);

    /// Writes a change to the drivers, shows what they keep of it and asks the limit once. Within it the change is
    /// notified and captured, and what the page shows counts as accepted. Beyond it the user is told, each driver gets
    /// its own values back, `putBack` restores what the page showed, and the derived labels follow; false then.
    /// `duration` is what one of them is known to hold: it is not asked again.
    bool commit(const Steps& step, const ScheduleChange& change, const std::function<void()>& putBack,
                const std::optional<Held>& duration = {});

    /// Brings the derived labels up to date where nothing is written.
    void refreshLabels() { actions_.refreshEstimate(); }

    /// The page has other drivers now.
    void followDrivers() { writer_.makeRoom(page_.currentDrivers().size()); }

    /// The page shows what the drivers hold, `seconds` of duration among it: what a later refusal returns to.
    void accept(double seconds);

    /// Puts the options and both times back as they were last accepted.
    void putBack();
    void putBackStartTime() { show(page_.txtStartTime, accepted_.startTime); }
    void putBackStopTime() { show(page_.txtStopTime, accepted_.stopTime); }

private:
    /// The time after a time. Where a time of day runs over midnight it is taken on today's date.
    [[nodiscard]] DateTime after(char unit, double amount, DateTime start) const;
    [[nodiscard]] DateTime onToday(DateTime time) const;
    [[nodiscard]] bool lacksStopTime() const;
    void showModes(std::int32_t start, std::int32_t stop);
    void showKept(const Steps& step, const ScheduleChange& change);
    void showKeptDuration(double seconds);

    /// What the page shows and the drivers hold.
    struct Accepted {
        OptionButton* start = nullptr;
        OptionButton* stop = nullptr;
        std::string startTime, stopTime;
        double seconds = 0.0;
    };

    Page& page_;
    Support& support_;
    Actions& actions_;
    ScheduleWriter writer_;
    Accepted accepted_;
};

} // namespace ko
