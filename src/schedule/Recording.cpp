#include "schedule/Recording.h"

#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"
#include "support/Numbers.h"

namespace ko {

DateTime Recording::timeIn(const TextBox& box) const
{
    return toDateTime(box.text(), support_.locale());
}

DateTime Recording::onToday(DateTime time) const
{
    return {datePart(support_.platform.clock.now()).days + timePart(time).days};
}

/// False when the duration or a time could not be read from the drivers and its box is empty.
bool Recording::isEntered() const
{
    if (page_.optAfter.value())
        return !page_.txtDuration.text().empty();
    return !page_.txtStartTime.text().empty() && !page_.txtStopTime.text().empty();
}

double Recording::getDurationSeconds() const
{
    if (page_.optAfter.value())
        return largerOf(toDouble(page_.txtDuration.text(), support_.locale()) * page_.cmbInterval.itemData(), 0.0);
    DateTime start = timeIn(page_.txtStartTime);
    DateTime stop = timeIn(page_.txtStopTime);
    if (start.days < 1.0 && stop.days > 1.0)
        start = onToday(start);
    else if (start.days > 1.0 && stop.days < 1.0)
        stop = onToday(stop);
    return dateDiffSeconds(start, stop);
}

std::optional<double> Recording::plannedSeconds() const
{
    if (!isEntered())
        return accepted_.seconds;
    const double entered = getDurationSeconds();
    return kept_ && kept_->entered == entered ? kept_->seconds : entered;
}

std::string Recording::computeStopTime(double seconds, DateTime start) const
{
    DateTime stop = dateAdd(TimeUnit::seconds, seconds, start);
    if (!start.hasDate() && stop.hasDate())
        stop = dateAdd(TimeUnit::seconds, seconds, onToday(start));
    return generalDate(stop, support_.locale());
}

std::optional<double> Recording::durationInForce() const
{
    const IndexedTimebase first = firstTimebase(page_.currentDrivers());
    return first ? std::optional(widen(first.timebase->Duration())) : accepted_.seconds;
}

std::optional<double> Recording::durationInForce(const Steps& step) const
{
    const auto seconds = step.value([&] { return durationInForce(); });
    return seconds ? seconds : accepted_.seconds;
}

std::optional<double> Recording::durationReadBack() const
{
    return readBack_.duration ? readBack_.seconds() : accepted_.seconds;
}

void Recording::show(TextBox& box, const std::string& text)
{
    const Scoped guard(page_.isUpdating, true);
    box.setText(text);
}

bool Recording::fillStartTime()
{
    if (!page_.txtStartTime.text().empty())
        return false;
    show(page_.txtStartTime, generalDate(timePart(support_.platform.clock.now()), support_.locale()));
    return true;
}

bool Recording::lacksStopTime() const
{
    return page_.txtStopTime.text().empty() || timeIn(page_.txtStopTime) < timeIn(page_.txtStartTime) ||
           getDurationSeconds() <= 0.0;
}

bool Recording::fillStopTime()
{
    if (!lacksStopTime())
        return false;
    std::string stop;
    if (const std::string& text = page_.txtDuration.text(); !text.empty())
        stop = computeStopTime(toDouble(text, support_.locale()) * page_.cmbInterval.itemData(),
                               timeIn(page_.txtStartTime));
    const bool isOther = page_.txtStopTime.text() != stop;
    show(page_.txtStopTime, stop);
    return isOther;
}

DateTime Recording::enteredStart()
{
    const DateTime start = timeIn(page_.txtStartTime);
    if (page_.optStopTime.value())
        fillStopTime();
    return start;
}

/// A stop at a time is possible only with a start at a time.
void Recording::showModes(const StartStopSettings& kept)
{
    if (kept.startMode) {
        OptionButton& other = *kept.startMode == startMode::onTrigger ? page_.optOnTrigger : page_.optImmediate;
        (*kept.startMode == startMode::atTime ? page_.optStartTime : other).showSelected();
    }
    const bool stopsAtTime = kept.stopMode ? *kept.stopMode == stopMode::atTime : page_.optStopTime.value();
    (stopsAtTime && page_.optStartTime.value() ? page_.optStopTime : page_.optAfter).showSelected();
}

/// Shows the values that the driver kept, which may differ from the change.
void Recording::showKept(const Steps& step, const StartStopSettings& kept)
{
    showModes(kept);
    if (kept.startTime)
        show(page_.txtStartTime, step.value([&] { return generalDate(*kept.startTime, support_.locale()); }));
    kept_.reset();
    if (kept.duration && isEntered())
        step([&] { showDuration(widen(*kept.duration)); });
}

/// The text of the focused box is not replaced while the user types.
void Recording::showDuration(double seconds)
{
    if (page_.optStopTime.value() && !page_.txtStartTime.text().empty() &&
        (page_.txtStopTime.text().empty() || seconds != getDurationSeconds()))
        show(page_.txtStopTime, computeStopTime(seconds, timeIn(page_.txtStartTime)));
    else if (page_.optAfter.value() && !page_.txtDuration.hasFocus())
        show(page_.txtDuration, numberText(seconds / page_.cmbInterval.itemData(), support_.locale()));
    keep(seconds);
}

void Recording::keep(double seconds)
{
    if (isEntered())
        kept_ = Kept{getDurationSeconds(), seconds};
}

Recording::Result Recording::write(const Steps& step, const StartStopSettings& change,
                                   const std::function<void()>& putBack, const Lacking& lacking,
                                   EarlierValues<StartStopSettings>* earlier)
{
    const Drivers drivers = page_.currentDrivers();
    GuardedWrite<StartStopSettings> guarded(page_, support_, actions_, change, drivers.size(), earlier);
    const auto readBack = [&] {
        readBack_ = guarded.drivers().empty() ? StartStopSettings{} : guarded.drivers().front().kept;
    };
    const auto restore = [&, before = kept_] {
        readBack();
        putBack();
        kept_ = before;
        if (readBack_.duration)
            keep(widen(*readBack_.duration));
    };
    const Lacking differing = [&](const StartStopSettings& before) { return change.without(before); };
    const Lacking& missing = lacking ? lacking : differing;
    forEachTimebase(step, drivers, [&](const IndexedTimebase& at) { guarded.write(step, at, missing, [] {}); });
    if (step.isSuperseded())
        return Result::PutBack;
    guarded.restoreIncomplete(step);
    readBack();
    if (guarded.anyTried() && !guarded.anyWritten()) {
        guarded.putBackPage(step, restore);
        return Result::PutBack;
    }
    isStopModeKnown_ = isStopModeKnown_ || change.stopMode;
    showKept(step, readBack_);
    if (!guarded.drivers().empty() && !guarded.anyTried())
        return Result::Held;
    const auto captured = page_.triggerVars;
    const bool fits = guarded.fits(step, restore);
    // During the event the host may have caused the refused value to be captured.
    if (!fits && page_.triggerVars != captured)
        Steps(support_.errors, step.procedure(), Steps::Begin::Anew)([&] { captured_.capture(); });
    return fits && !step.isSuperseded() ? Result::Taken : Result::PutBack;
}

void Recording::accepted(const Steps& step, Result result)
{
    std::optional<double> seconds = durationReadBack();
    if (!readBack_.duration)
        step([&] {
            if (const auto planned = plannedSeconds())
                seconds = largerOf(*planned, 0.0);
        });
    accept(seconds);
    if (result == Result::Taken)
        step([&] { actions_.markChanged(); });
    else
        actions_.refreshEstimate();
    captured_.capture(readBack_);
    if (const auto held = captured_.secondsOfFirst(); held && !accepted_.seconds)
        follow(step, *held);
}

void Recording::follow(const Steps& step, double seconds)
{
    accepted_.seconds = seconds;
    if (page_.txtDuration.text().empty())
        step([&] { show(page_.txtDuration, numberText(seconds / page_.cmbInterval.itemData(), support_.locale())); });
    step([&] { showDuration(seconds); });
    if (page_.figures.plannedSeconds != seconds)
        actions_.refreshEstimate();
}

Recording::Result Recording::commit(const Steps& step, const StartStopSettings& change,
                                    const std::function<void()>& putBack, const Lacking& lacking,
                                    EarlierValues<StartStopSettings>* earlier)
{
    const Result result = write(step, change, putBack, lacking, earlier);
    if (result != Result::PutBack)
        accepted(step, result);
    return result;
}

void Recording::restored(const Steps& step)
{
    readBack_ = {};
    step([&] {
        if (const IndexedTimebase first = firstTimebase(page_.currentDrivers()))
            readBack_.duration = first.timebase->Duration();
    });
    kept_.reset();
    if (readBack_.duration)
        step([&] { keep(widen(*readBack_.duration)); });
    accepted(step, Result::Taken);
    actions_.refreshRestored();
}

void Recording::loaded(const Steps& step, const StartStopSettings& shown)
{
    const auto seconds = shown.seconds();
    accept(seconds);
    isStopModeKnown_ = shown.startMode && shown.stopMode;
    kept_.reset();
    if (seconds)
        step([&] { keep(*seconds); });
}

void Recording::accept(std::optional<double> seconds)
{
    accepted_.start = page_.startOption();
    accepted_.stop = page_.optStopTime.value() ? &page_.optStopTime : &page_.optAfter;
    accepted_.startTime = page_.txtStartTime.text();
    accepted_.stopTime = page_.txtStopTime.text();
    accepted_.seconds = seconds;
}

void Recording::putBack()
{
    for (OptionButton* option : {accepted_.start, accepted_.stop})
        if (option)
            option->showSelected();
    if (OptionButton* option = page_.startOption(); option && !accepted_.start)
        option->deselect();
    putBackStartTime();
    putBackStopTime();
}

} // namespace ko
