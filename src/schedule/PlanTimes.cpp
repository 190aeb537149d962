#include "schedule/PlanTimes.h"

#include "platform/DateTimes.h"
#include "schedule/DurationText.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"

#include <algorithm>

namespace ko {

namespace {

namespace timesText = textNumber::times;

using Kind = Timeline::Stretch::Kind;

/// The day, if it has a name, and the distance.
std::string when(const Support& support, const Moments& moments, DateTime time)
{
    const std::string distance = distanceText(support, moments, time);
    const std::string day = dayName(support, moments, time);
    return day.empty() ? distance : filled(support.text(timesText::dayAndTime), {day, distance});
}

} // namespace

void PlanTimes::show(const Steps& step, const Moments& moments)
{
    step([&] { showDays(moments); });
    const Timeline::Points shown = step.value([&] { return points(moments); });
    page_.tmlPlan.setPoints(shown);
    step([&] { page_.tmlPlan.setCaption(inWords(shown)); });
    page_.tmlPlan.setVisible(!shown.empty());
}

void PlanTimes::showDays(const Moments& moments)
{
    const auto show = [&](Label& label, const std::optional<DateTime>& time) {
        label.setCaption(time ? when(support_, moments, *time) : std::string());
        label.setVisible(time.has_value());
    };
    page_.lblStartPast.setVisible(moments.isStartPast());
    show(page_.lblStartDay, moments.start);
    show(page_.lblStopDay, page_.optStopTime.value() ? moments.plannedStop : std::nullopt);
}

Timeline::Mark PlanTimes::startMark(const Moments& moments) const
{
    return {text(timesText::start), dayAndTime(support_, moments, *moments.start),
            distanceText(support_, moments, *moments.start), moments.isStartPast()};
}

Timeline::Mark PlanTimes::stopMark(const std::string& distance) const
{
    return {text(timesText::stop), distance.empty() ? text(timesText::unknown) : std::string(), distance};
}

Timeline::Stretch PlanTimes::recording() const
{
    const auto& seconds = page_.figures.actualSeconds;
    return {Kind::recording, isCountable(seconds) ? filled(text(timesText::records), {durationText(support_, *seconds)})
                                                  : text(timesText::recordsUnknown)};
}

Timeline::Points PlanTimes::atTime(const Moments& moments) const
{
    Timeline::Points points{{startMark(moments), recording()}, {stopMark({}), {}}};
    if (moments.actualStop)
        points[1].mark = {text(timesText::stop), dayAndTime(support_, moments, *moments.actualStop),
                          distanceText(support_, moments, *moments.actualStop)};
    const bool isOver = moments.actualStop && dateDiffSeconds(moments.now, *moments.actualStop) < 0.0;
    const std::ptrdiff_t place = moments.isStartPast() ? (isOver ? 2 : 1) : 0;
    const Kind after = place == 1 ? Kind::recording : Kind::plain;
    points.insert(points.begin() + place, {{text(timesText::now), {}, {}}, {after, {}}});
    return points;
}

Timeline::Points PlanTimes::points(const Moments& moments) const
{
    if (page_.numDrivers <= 0)
        return {};
    if (moments.start)
        return atTime(moments);
    const auto& seconds = page_.figures.actualSeconds;
    if (page_.optImmediate.value()) {
        const std::string later =
            isCountable(seconds) ? filled(text(timesText::in), {durationText(support_, *seconds)}) : "";
        return {{{text(timesText::start), text(timesText::immediately), {}}, recording()}, {stopMark(later), {}}};
    }
    if (!page_.optOnTrigger.value())
        return {};
    Timeline::Mark stop = stopMark({});
    if (isCountable(seconds))
        stop.time.clear();
    return {{{text(timesText::now), {}, {}}, {Kind::uncertain, text(timesText::waitsForTrigger)}},
            {{text(timesText::trigger), page_.txtChannel.text(), {}}, recording()},
            {stop, {}}};
}

std::string PlanTimes::inWords(const Timeline::Points& points) const
{
    std::string all;
    const auto add = [&](const std::string& part, int pattern) {
        if (!part.empty())
            all = all.empty() ? part : filled(text(pattern), {all, part});
    };
    for (const Timeline::Point& point : points) {
        add(point.mark.title, timesText::next);
        add(point.mark.time, timesText::of);
        add(point.mark.distance, point.mark.time.empty() ? timesText::of : timesText::dayAndTime);
        if (&point != &points.back())
            add(point.after.text, timesText::next);
    }
    return all;
}

} // namespace ko
