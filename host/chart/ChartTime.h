#pragma once

#include <algorithm>
#include <optional>
#include <vector>

namespace ko {

/// The part of a recording's time that a chart shows: all of it, the last seconds, or a part that stays.
class ChartTime {
public:
    /// The time of the first column, and of one column.
    struct View {
        double from = 0.0;
        double perColumn = 1.0;
    };

    void showAll() { span_.reset(); }
    /// Shows the last seconds, whatever comes.
    void follow(double seconds);
    void followEnd() { from_.reset(); }
    /// Shows less or more, in steps of 1, 2 and 5; all if that is not longer. What is in the middle stays there, unless
    /// the end is followed.
    void zoom(bool in, double end);
    /// Shows this part of the time, in thousandths of what can be scrolled; follows the end from 1000 on.
    void scroll(int thousandths, double end);

    [[nodiscard]] View view(double end, int columns) const;
    /// Where `scroll` would bring the view; none if everything is visible.
    [[nodiscard]] std::optional<int> place(double end) const;
    /// The seconds that are visible.
    [[nodiscard]] double span(double end) const { return span_.value_or(std::max(end, shortest)); }

    static constexpr double shortest = 1e-6;
    static constexpr int scrollSteps = 1000;

private:
    [[nodiscard]] double from(double end) const;

    std::optional<double> span_; ///< none: all
    std::optional<double> from_; ///< none: follows the end
};

/// Returns the smallest of 1, 2, 5, 10, 20, ... and of 0.5, 0.2, 0.1, ... that is not below `least`, which is positive.
double roundStep(double least);

/// The places of round numbers between two ones, at least `step` apart.
std::vector<double> ticks(double low, double high, double least);

/// The bounds of a vertical axis.
struct ChartScale {
    double low = 0.0, high = 1.0;

    /// Returns round bounds for these values; the same ones as long as they fit.
    [[nodiscard]] ChartScale fitted(double lowest, double highest) const;
};

} // namespace ko
