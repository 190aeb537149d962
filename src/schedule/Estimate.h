#pragma once

#include "schedule/Recording.h"

namespace ko {

/// Computes the page's figures and shows them in its labels: samples, scans, disk space, actual duration and stop time.
class Estimate {
public:
    Estimate(Page& page, Support& support, const Recording& recording)
        : page_(page), support_(support), recording_(recording)
    {
    }

    /// See `Actions::updateDiskSpace`. Does nothing while the page is being built or when a time on the page cannot be
    /// read. Figures that depend on an unknown duration are not available.
    std::int32_t updateDiskSpace();

    /// Shows that the counts and bytes are not available, for settings in force that exceed the limit, and updates the
    /// actual duration.
    void showBeyondLimit();

    /// Shows the actual duration and stop time again: the day of a stop after midnight depends on the clock. Calls no
    /// driver.
    void followClock();

    /// Clears all figures.
    void clear();

private:
    void estimateDynamic(const Steps& step);
    void estimateStatic(const Steps& step, const std::optional<std::int32_t>& scans);
    void updateActualDuration();
    void showActualDuration(const Steps& step);
    void showCounts(const Steps& step);
    void showBytes(const Steps& step, LimitedLabel& label, const std::optional<double>& bytes);
    [[nodiscard]] double lengthOf(const Steps& step, double intervals, std::int32_t driver, double (Timebase::*get)(),
                                  std::optional<double>& period) const;
    [[nodiscard]] double actualSeconds(const Steps& step) const;
    /// The figure's text, or the text for "not available" when the figure is unknown.
    template <class Figure, class Text>
    [[nodiscard]] std::string textOf(const Steps& step, const std::optional<Figure>& figure, Text&& text) const
    {
        std::string shown = page_.notApplicableText;
        if (figure)
            step([&] { shown = text(*figure); });
        return shown;
    }

    Page& page_;
    Support& support_;
    const Recording& recording_;
};

} // namespace ko
