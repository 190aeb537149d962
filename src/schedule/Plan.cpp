#include "schedule/Plan.h"

#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "schedule/DurationText.h"
#include "support/Phrases.h"
#include "support/Steps.h"
#include "support/TextNumbers.h"

#include <cmath>

namespace ko {

namespace {

/// Placeholders of the sentences, the same for all starts: %1 the duration, %2 the figures, %3 by how much it ends
/// later than planned, %4 the start time or the trigger, %5 the stop time, %6 the actual end time.
namespace planText = textNumber::plan;

/// A number with decimals or a list entry, which usually is a trigger condition.
bool isCondition(const Grid::Cell& value)
{
    return value.style.format != 0 || value.style.control == CellStyle::Control::list;
}

} // namespace

void Plan::show()
{
    const Steps step(support_.errors, "showPlan");
    const Moments moments = step.value([&] { return momentsOf(page_, support_); });
    step([&] { page_.lblPlan.setCaption(withOneFullStop(sentence(moments))); });
    times_.show(step, moments);
}

std::string Plan::sentence(const Moments& moments) const
{
    if (page_.numDrivers <= 0)
        return text(planText::nothing);
    const int base = start();
    const std::string startText = page_.optOnTrigger.value() ? trigger() : startTime(moments);
    if (!isDurationKnown())
        return filled(text(base + 2), {"", "", "", startText, page_.txtStopTime.text()});
    const Figures& known = page_.figures;
    const std::string what = figures();
    const std::string end = known.stopTime ? generalDate(*known.stopTime, support_.locale()) : std::string();
    return filled(text(what.empty() ? base + 1 : base), {entered(), what, durationText(support_, *known.actualSeconds),
                                                         startText, page_.txtStopTime.text(), end});
}

/// The start time; with the day if it has no date, and marked if it is past.
std::string Plan::startTime(const Moments& moments) const
{
    const std::string& entered = page_.txtStartTime.text();
    if (!moments.start)
        return entered;
    std::string mark;
    if (moments.isStartPast())
        mark = text(textNumber::times::past);
    else if (!toDateTime(entered, support_.locale()).hasDate())
        mark = dayName(support_, moments, *moments.start);
    return mark.empty() ? entered : filled(text(textNumber::times::marked), {entered, mark});
}

int Plan::start() const
{
    if (page_.optOnTrigger.value())
        return page_.txtChannel.text().empty() ? planText::onAnyTrigger : planText::onTrigger;
    if (page_.optImmediate.value())
        return planText::immediately;
    if (!page_.optStartTime.value() || page_.txtStartTime.text().empty())
        return planText::atUnknownTime;
    return page_.optStopTime.value() ? planText::fromTimeToTime : planText::atTime;
}

bool Plan::isDurationKnown() const
{
    const Figures& known = page_.figures;
    const bool isEndKnown = start() != planText::fromTimeToTime || known.stopTime;
    return isCountable(known.plannedSeconds) && isCountable(known.actualSeconds) && isEndKnown;
}

/// The duration as entered by the user, in the chosen unit.
std::string Plan::entered() const
{
    constexpr int symbols[] = {planText::seconds, planText::minutes, planText::hours};
    const double seconds = *page_.figures.plannedSeconds;
    const auto chosen = static_cast<std::size_t>(page_.cmbInterval.index());
    if (!page_.optAfter.value() || chosen >= std::size(symbols))
        return durationText(support_, seconds);
    return filled(text(symbols[chosen]), {shortNumber(support_, seconds / page_.cmbInterval.itemData())});
}

std::string Plan::trigger() const
{
    const std::string conditions = triggerConditions();
    const std::string& channel = page_.txtChannel.text();
    return conditions.empty() ? channel : filled(text(planText::conditionedTrigger), {channel, conditions});
}

std::string Plan::triggerConditions() const
{
    constexpr int most = 3;
    const Grid& grid = page_.grdParam;
    std::string all;
    int found = 0;
    for (std::int32_t row = 1; row <= grid.rowCount() && found < most; ++row) {
        const Grid::Cell& value = grid.cell(row, Grid::valueColumn);
        if (!isCondition(value))
            continue;
        const std::string one =
            filled(text(planText::condition), {grid.cell(row, Grid::nameColumn).value, value.value});
        all = ++found == 1 ? one : filled(text(planText::conditions), {all, one});
    }
    return all;
}

/// The known figures on the size of the recording.
std::string Plan::figures() const
{
    const Figures& known = page_.figures;
    const auto bytes = [this](const Frame& frame, const std::optional<double>& number) {
        return frame.visible() && number ? formatByteCount(support_, *number) : std::string();
    };
    const std::string dynamicBytes = bytes(page_.frmDynamic, known.dynamicBytes);
    const std::string staticBytes = bytes(page_.frmStatic, known.staticBytes);
    const bool hasStatic = !staticBytes.empty();
    if (dynamicBytes.empty() && !hasStatic)
        return {};
    if (dynamicBytes.empty())
        return known.scans ? filled(text(planText::scansOfStatic),
                                    {counted(support_, *known.scans, planText::scans), staticBytes})
                           : filled(text(planText::bytesOfStatic), {staticBytes});
    if (!known.samples)
        return filled(text(hasStatic ? planText::bytesOfBoth : planText::bytesOfDynamic), {dynamicBytes, staticBytes});
    return filled(text(hasStatic ? planText::samplesOfBoth : planText::samplesOfDynamic),
                  {counted(support_, *known.samples, planText::samples), dynamicBytes, staticBytes});
}

} // namespace ko
