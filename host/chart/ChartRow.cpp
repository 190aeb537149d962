#include "host/chart/ChartRow.h"

#include <algorithm>
#include <cmath>

namespace ko {

ChartCurve curveOf(const ChartSource& source, std::size_t channel, const ChannelState& state,
                   const ChartTime::View& view, int columns)
{
    const double period = source.channels()[channel].period;
    SampleSpan span{.first = (view.from - state.start) / period,
                    .width = view.perColumn / period,
                    .count = static_cast<std::size_t>(columns)};
    if (span.width < 1.0) {
        const double samples = std::ceil(span.width * columns) + 3.0;
        span = {.first = std::floor(span.first) - 1.0, .width = 1.0, .count = static_cast<std::size_t>(samples)};
    }
    return {.extents = source.extents(channel, span),
            .first = state.start + span.first * period,
            .step = span.width * period,
            .start = state.start,
            .end = state.start + static_cast<double>(state.samples) * period};
}

Extent finiteExtent(const ChartCurve& curve)
{
    Extent all;
    for (const Extent& extent : curve.extents)
        if (std::isfinite(extent.low) && std::isfinite(extent.high))
            all.add(extent);
    return all;
}

double ChartPlot::y(double value) const
{
    const double share = (value - scale.low) / (scale.high - scale.low);
    return rect.bottom() - std::clamp(share, 0.0, 1.0) * rect.height();
}

QVector<QLineF> ChartPlot::lines(const ChartCurve& curve) const
{
    QVector<QLineF> lines;
    const Extent* before = nullptr;
    for (std::size_t i = 0; i < curve.extents.size(); ++i) {
        const Extent& now = curve.extents[i];
        if (now.isEmpty()) {
            before = nullptr;
            continue;
        }
        const double at = x(curve.timeOf(i));
        lines.append(QLineF(at, y(now.low), at, y(now.high)));
        if (before) {
            // Between the nearest values of the two.
            const double from = std::clamp(now.low, before->low, before->high);
            const double to = std::clamp(static_cast<float>(from), now.low, now.high);
            lines.append(QLineF(x(curve.timeOf(i - 1)), y(from), at, y(to)));
        }
        before = &now;
    }
    return lines;
}

QVector<QRectF> ChartPlot::gaps(const ChartCurve& curve) const
{
    QVector<QRectF> gaps;
    const double left = std::max(x(curve.start), rect.left());
    const double right = std::min(x(curve.end), rect.right());
    for (std::size_t i = 0; i < curve.extents.size(); ++i) {
        const double from = std::max(x(curve.timeOf(i)), left);
        const double to = std::min(x(curve.timeOf(i + 1)), right);
        if (!curve.extents[i].isEmpty() || from >= to)
            continue;
        if (!gaps.isEmpty() && gaps.last().right() >= from - 0.01)
            gaps.last().setRight(to);
        else
            gaps.append(QRectF(from, rect.top(), to - from, rect.height()));
    }
    return gaps;
}

QVector<QLineF> ChartPlot::clippedMarks(const ChartCurve& curve, const ArmedChannel& channel) const
{
    constexpr double near = 2.0;
    QVector<QLineF> marks;
    for (std::size_t i = 0; i < curve.extents.size() && channel.hasRange(); ++i) {
        const Extent& extent = curve.extents[i];
        const double at = x(curve.timeOf(i));
        if (!extent.isEmpty() && extent.high >= static_cast<float>(channel.range.maximum))
            marks.append(QLineF(at, rect.top() - margin, at, rect.top() - near));
        if (!extent.isEmpty() && extent.low <= static_cast<float>(channel.range.minimum))
            marks.append(QLineF(at, rect.bottom() + near, at, rect.bottom() + margin));
    }
    return marks;
}

} // namespace ko
