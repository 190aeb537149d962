#include "host/chart/ChartTime.h"

#include <cmath>

namespace ko {

void ChartTime::follow(double seconds)
{
    span_ = seconds;
    from_.reset();
}

void ChartTime::zoom(bool in, double end)
{
    const double old = span(end);
    constexpr double next = 1.0001; // more than any error of rounding
    const double larger = roundStep(old * next);
    double smaller = roundStep(old / 10.0);
    while (roundStep(smaller * next) < old / next)
        smaller = roundStep(smaller * next);
    const double now = in ? std::max({smaller, shortest, end * 1e-12}) : larger;
    const double middle = from(end) + old / 2.0;
    if (!span_)
        from_ = 0.0;
    if (now >= end && !in)
        return showAll();
    span_ = now;
    if (from_)
        from_ = std::clamp(middle - now / 2.0, 0.0, std::max(end - now, 0.0));
}

void ChartTime::scroll(int thousandths, double end)
{
    const double room = end - span(end);
    if (thousandths >= scrollSteps || room <= 0.0)
        return followEnd();
    from_ = room * thousandths / scrollSteps;
}

ChartTime::View ChartTime::view(double end, int columns) const
{
    const double perColumn = span(end) / std::max(columns, 1);
    // Whole columns, so that a column keeps its samples while the chart moves.
    return {std::floor(from(end) / perColumn) * perColumn, perColumn};
}

double ChartTime::from(double end) const
{
    return span_ ? from_.value_or(std::max(end - *span_, 0.0)) : 0.0;
}

std::optional<int> ChartTime::place(double end) const
{
    const double room = end - span(end);
    if (!span_ || room <= 0.0)
        return std::nullopt;
    return from_ ? static_cast<int>(std::lround(std::min(*from_ / room, 1.0) * scrollSteps)) : scrollSteps;
}

double roundStep(double least)
{
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power >= least)
            return step * power;
    return 10.0 * power;
}

std::vector<double> ticks(double low, double high, double least)
{
    const double step = roundStep(least);
    std::vector<double> places;
    const double first = std::ceil(low / step);
    for (int i = 0; i < 1000 && (first + i) * step <= high; ++i)
        places.push_back((first + i) * step);
    return places;
}

ChartScale ChartScale::fitted(double lowest, double highest) const
{
    constexpr double leastUsed = 0.4;
    const bool fits = lowest >= low && highest <= high && highest - lowest >= leastUsed * (high - low);
    if (fits)
        return *this;
    const double size = highest - lowest > 0.0 ? highest - lowest : std::max(std::abs(highest), 1.0) * 0.1;
    const double step = roundStep(size / 4.0);
    const double middle = highest - lowest > 0.0 ? 0.0 : step;
    // Rounding must not push the values out.
    return {std::min(std::floor((lowest - middle) / step) * step, lowest),
            std::max(std::ceil((highest + middle) / step) * step, highest)};
}

} // namespace ko
