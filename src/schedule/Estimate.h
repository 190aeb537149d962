#pragma once

#include "schedule/Recording.h"

namespace ko {

/// What the recording will produce: samples, scans, disk space, actual duration and stop time.
class Estimate {
public:
    Estimate(Page& page, Support& support, const Recording& recording)
        : page_(page), support_(support), recording_(recording)
    {
    }

    /// See `Actions::updateDiskSpace`. Does nothing while the duration is not known.
    std::int32_t updateDiskSpace();

    /// All figures at the text for what is not available.
    void clear();

private:
    std::optional<double> showDynamic(const Steps& step, double seconds, double bytes);
    void showStatic(const Steps& step, Driver* driver, const ByteTotals& totals);
    void updateActualDuration(std::optional<double> samplePeriod);
    void showBytes(const Steps& step, LimitedLabel& label, double bytes);
    [[nodiscard]] double lasting(const Steps& step, double intervals, std::int32_t driver,
                                 double (Timebase::*period)()) const;
    [[nodiscard]] double actualSeconds(const Steps& step, std::optional<double> samplePeriod) const;
    [[nodiscard]] double countIn(const Label& label) const;
    /// The number as text; the text for what is not available when it fails or does not fit into 32 bits.
    [[nodiscard]] std::string wholeNumber(const Steps& step, const std::function<double()>& number) const;

    Page& page_;
    Support& support_;
    const Recording& recording_;
};

} // namespace ko
