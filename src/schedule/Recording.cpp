#include "schedule/Recording.h"

#include "interfaces/Timebase.h"
#include "page/Messages.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"
#include "platform/Utf8.h"

namespace ko {

DateTime Recording::timeIn(const TextBox& box) const
{
    return toDateTime(box.text(), support_.locale());
}

DateTime Recording::onToday(DateTime time) const
{
    return {datePart(support_.platform.clock.now()).days + timePart(time).days};
}

double Recording::getDurationSeconds() const
{
    if (page_.optAfter.value())
        return toDouble(page_.txtDuration.text(), support_.locale()) * page_.cmbInterval.itemData();
    DateTime start = timeIn(page_.txtStartTime);
    DateTime stop = timeIn(page_.txtStopTime);
    if (start.days < 1.0 && stop.days > 1.0)
        start = onToday(start);
    else if (start.days > 1.0 && stop.days < 1.0)
        stop = onToday(stop);
    return dateDiffSeconds(start, stop);
}

DateTime Recording::after(char unit, double amount, DateTime start) const
{
    const DateTime time = dateAdd(unit, amount, start);
    return start.hasDate() || !time.hasDate() ? time : dateAdd(unit, amount, onToday(start));
}

std::string Recording::computeStopTime(char unit, double amount, DateTime start) const
{
    return generalDate(after(unit, amount, start), support_.locale());
}

Held Recording::durationInForce() const
{
    Timebase* timebase = firstTimebase(page_.currentDrivers()).timebase;
    return {timebase ? widen(timebase->Duration()) : accepted_.seconds, timebase};
}

void Recording::show(TextBox& box, const std::string& text)
{
    const Scoped guard(page_.isUpdating, true);
    box.setText(text);
}

void Recording::fillStartTime()
{
    if (page_.txtStartTime.text().empty())
        show(page_.txtStartTime, generalDate(timePart(support_.platform.clock.now()), support_.locale()));
}

bool Recording::lacksStopTime() const
{
    return page_.txtStopTime.text().empty() || timeIn(page_.txtStopTime) < timeIn(page_.txtStartTime) ||
           getDurationSeconds() <= 0.0;
}

void Recording::fillStopTime()
{
    constexpr std::string_view units = "snhd";
    if (!lacksStopTime())
        return;
    const char unit = units.at(static_cast<std::size_t>(page_.cmbInterval.index()));
    const double amount = toDouble(page_.txtDuration.text(), support_.locale());
    show(page_.txtStopTime, computeStopTime(unit, amount, timeIn(page_.txtStartTime)));
}

void Recording::showModes(std::int32_t start, std::int32_t stop)
{
    OptionButton& other = start == startMode::onTrigger ? page_.optOnTrigger : page_.optImmediate;
    (start == startMode::atTime ? page_.optStartTime : other).showSelected();
    (stop == stopMode::atTime ? page_.optStopTime : page_.optAfter).showSelected();
}

/// A driver may keep another value than the one written: that is the one to show.
void Recording::showKept(const Steps& step, const ScheduleChange& change)
{
    Timebase* timebase = firstTimebase(page_.currentDrivers()).timebase;
    if (!timebase)
        return;
    if (change.startMode || change.stopMode)
        step([&] {
            const std::int32_t start = timebase->StartMode();
            showModes(start, start == startMode::atTime ? timebase->StopMode() : stopMode::afterDuration);
        });
    bool startsElsewhere = false;
    if (change.startTime)
        step([&] {
            const DateTime kept = timebase->StartTime();
            startsElsewhere = kept != *change.startTime;
            show(page_.txtStartTime, generalDate(kept, support_.locale()));
        });
    if (change.duration)
        step([&] {
            const float kept = timebase->Duration();
            if (kept != *change.duration || (startsElsewhere && page_.optStopTime.value()))
                showKeptDuration(widen(kept));
        });
}

void Recording::showKeptDuration(double seconds)
{
    if (page_.optStopTime.value()) {
        show(page_.txtStopTime, computeStopTime('s', seconds, timeIn(page_.txtStartTime)));
        return;
    }
    TextBox& box = page_.txtDuration;
    show(box, numberText(seconds / page_.cmbInterval.itemData(), support_.locale()));
    box.select(utf8Length(box.text()), 0);
}

bool Recording::commit(const Steps& step, const ScheduleChange& change, const std::function<void()>& putBack,
                       const std::optional<Held>& duration)
{
    writer_.write(step, page_.currentDrivers(), change, duration);
    showKept(step, change);
    if (const std::int32_t code = actions_.updateDiskSpace(); code != 0) {
        step([&] { showLimitMessage(support_, code); });
        writer_.undo(step);
        step(putBack);
        actions_.refreshEstimate();
        actions_.tellWhatFits(code);
        return false;
    }
    accept(change.duration ? widen(*change.duration) : accepted_.seconds);
    step([&] { actions_.markChanged(); });
    actions_.captureStartStop();
    return true;
}

void Recording::accept(double seconds)
{
    for (OptionButton* option : {&page_.optImmediate, &page_.optOnTrigger, &page_.optStartTime})
        if (option->value())
            accepted_.start = option;
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
    putBackStartTime();
    putBackStopTime();
}

} // namespace ko
