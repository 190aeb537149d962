#include "schedule/SetDateTime.h"

#include "schedule/ClockFace.h"
#include "support/TextNumbers.h"

namespace ko {

namespace {

namespace dateText = textNumber::dateDialog;

} // namespace

SetDateTime::SetDateTime(Support& support)
    : DialogForm(support, "SetDateTime", dateText::block, dateText::title, helpTopic::setDateTime)
{
    btnOK.setTag(offset(dateText::ok));
    btnCancel.setTag(offset(dateText::cancel));
    btnHelp.setTag(offset(dateText::help));
    frmDate.setTag(offset(dateText::date));
    frmTime.setTag(offset(dateText::time));
    optCurrentDay.setTag(offset(dateText::anyDate));
    optSpecifiedDay.setTag(offset(dateText::specificDate));
    resize(7800, 5400);
    load(btnOK, btnCancel, &btnHelp);
    optCurrentDay.click = [this] { optCurrentDay_Click(); };
    optSpecifiedDay.click = [this] { optSpecifiedDay_Click(); };
    calDate.change = [this] { rememberedDay_ = calDate.day(); };
    dtpTimeSelector.change = [this] { dtpTimeSelector_Change(); };
    picClock.paint = [this](double width, double height) { return clockFace(width, height, clockTime_); };
    accepting = [this](const Steps& step) { step([&] { newval_ = chosen(); }); };
}

std::optional<DateTime> SetDateTime::Display(DateTime currentValue, bool anyDayOnly, bool oneDayOnly)
{
    const Steps step(support().errors, "Display");
    newval_.reset();
    if (!anyDayOnly || !oneDayOnly) {
        optSpecifiedDay.setEnabled(!anyDayOnly);
        optCurrentDay.setEnabled(!oneDayOnly);
    }
    showDay(step, currentValue);
    const LocaleSettings& locale = support().localeSettings;
    dtpTimeSelector.setFormat({locale.timeFormat, locale.amDesignator, locale.pmDesignator});
    step([&] {
        const DateParts time = dateParts(currentValue);
        dtpTimeSelector.setTime(time.hour, time.minute, time.second);
    });
    const bool accepted = show(step, placeAtCursor, optSpecifiedDay.value() ? optSpecifiedDay : optCurrentDay);
    return accepted ? newval_ : std::nullopt;
}

void SetDateTime::showDay(const Steps& step, DateTime currentValue)
{
    step([&] {
        const DateParts day = dateParts(currentValue.hasDate() ? currentValue : support().platform.clock.now());
        calDate.setDate(day.year, day.month, day.day);
    });
    rememberedDay_ = calDate.day();
    (currentValue.hasDate() ? optSpecifiedDay : optCurrentDay).showSelected();
    calDate.setEnabled(optSpecifiedDay.value() && optSpecifiedDay.enabled());
}

void SetDateTime::optCurrentDay_Click()
{
    rememberedDay_ = calDate.day();
    calDate.setEnabled(false);
}

void SetDateTime::optSpecifiedDay_Click()
{
    const Steps step(support().errors, "optSpecifiedDay_Click");
    calDate.setEnabled(true);
    step([&] { calDate.setDate(calDate.year(), calDate.month(), rememberedDay_); });
}

void SetDateTime::dtpTimeSelector_Change()
{
    const Steps step(support().errors, "dtpTimeSelector_Change");
    step([&] { clockTime_ = timeSerial(dtpTimeSelector.hour(), dtpTimeSelector.minute(), dtpTimeSelector.second()); });
    picClock.redraw();
}

DateTime SetDateTime::chosen() const
{
    const DateTime time = timeSerial(dtpTimeSelector.hour(), dtpTimeSelector.minute(), dtpTimeSelector.second());
    const DateTime date =
        optSpecifiedDay.value() ? dateSerial(calDate.year(), calDate.month(), calDate.day()) : DateTime{};
    return {date.days + time.days};
}

} // namespace ko
