#include "schedule/Estimate.h"

#include "platform/Counts.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "schedule/Moments.h"
#include "support/Numbers.h"

#include <algorithm>
#include <cmath>

namespace ko {

void Estimate::clear()
{
    page_.figures = {};
    const Steps step(support_.errors, "updateDiskSpace");
    showCounts(step);
    page_.lblDurationValue.setCaption(page_.notApplicableText);
}

void Estimate::showBeyondLimit()
{
    Figures& figures = page_.figures;
    figures.samples = figures.scans = std::nullopt;
    figures.dynamicBytes = figures.staticBytes = std::nullopt;
    showCounts(Steps(support_.errors, "updateDiskSpace"));
    updateActualDuration();
}

std::int32_t Estimate::updateDiskSpace()
{
    if (!page_.isDurationKnown)
        return diskSpace::fits;
    const Steps step(support_.errors, "updateDiskSpace");
    Figures& figures = page_.figures;
    figures.plannedSeconds.reset();
    if (!step([&] { figures.plannedSeconds = recording_.plannedSeconds(); }))
        return diskSpace::fits;
    ByteTotals totals = sumDriverBytes(page_.currentDrivers(), page_.driverAt(page_.scannedDriverIndex));
    figures.drivers = std::move(totals.each);
    const std::int32_t code = checkDiskSpace(totals, page_.hasDynamicDrivers, page_.hasStaticDrivers);
    figures.samplePeriod = figures.blockSize = figures.scanPeriod = std::nullopt;
    if (code == diskSpace::fits) {
        if (page_.hasDynamicDrivers) {
            estimateDynamic(step);
            figures.dynamicBytes = totals.dynamicBytes;
        }
        estimateStatic(step, totals.scans);
        figures.staticBytes = totals.staticBytes;
        showCounts(step);
    }
    updateActualDuration();
    return code;
}

void Estimate::estimateDynamic(const Steps& step)
{
    Figures& figures = page_.figures;
    figures.samples.reset();
    Timebase* timebase = step.value([&] { return page_.timebaseAt(page_.dynamicDriverIndex); });
    if (!timebase || !figures.plannedSeconds || *figures.plannedSeconds < 0.0)
        return;
    step([&] {
        figures.samplePeriod = timebase->SamplePeriod();
        const double samples = *figures.plannedSeconds / nonZero(*figures.samplePeriod);
        figures.blockSize = timebase->BlockSize();
        figures.samples = toLong(wholeBlocks(samples, toLong(*figures.blockSize)));
    });
}

/// `scans` is the number that the totals were computed from, if any.
void Estimate::estimateStatic(const Steps& step, const std::optional<std::int32_t>& scans)
{
    page_.figures.scans = scans;
    Driver* driver = page_.driverAt(page_.scannedDriverIndex);
    if (scans || !driver)
        return;
    step([&] {
        if (StaticMeasurement* measurement = driver->queryStaticMeasurement())
            page_.figures.scans = measurement->NumberOfScans();
    });
}

void Estimate::showCounts(const Steps& step)
{
    const Figures& figures = page_.figures;
    const auto count = [this](std::int32_t number) { return numberText(number, support_.locale()); };
    page_.lblNumSamplesValue.setCaption(textOf(step, figures.samples, count));
    page_.lblNumScansValue.setCaption(textOf(step, figures.scans, count));
    showBytes(step, page_.lblNumDynamicBytesValue, figures.dynamicBytes);
    showBytes(step, page_.lblNumStaticBytesValue, figures.staticBytes);
}

void Estimate::showBytes(const Steps& step, LimitedLabel& label, const std::optional<double>& bytes)
{
    label.setCaption(textOf(step, bytes, [this](double number) { return formatByteCount(support_, number); }));
    label.setShare(std::clamp(bytes.value_or(0.0) / fileSizeLimit, 0.0, 1.0));
}

/// The length of `intervals` periods of a driver in seconds; 0 when `intervals` is not positive. Reads `period` only
/// when it is not set.
double Estimate::lengthOf(const Steps& step, double intervals, std::int32_t driver, double (Timebase::*get)(),
                          std::optional<double>& period) const
{
    if (intervals > 0.0 && !period)
        step([&] {
            if (Timebase* timebase = page_.timebaseAt(driver))
                period = (timebase->*get)();
        });
    return intervals > 0.0 ? intervals * period.value_or(0.0) : 0.0;
}

double Estimate::actualSeconds(const Steps& step) const
{
    Figures& figures = page_.figures;
    const double intervals = figures.samples.value_or(1) - 1.0;
    return largerOf(
        lengthOf(step, intervals, page_.dynamicDriverIndex, &Timebase::SamplePeriod, figures.samplePeriod),
        lengthOf(step, figures.scans.value_or(0), page_.scannedDriverIndex, &Timebase::ScanPeriod, figures.scanPeriod));
}

void Estimate::updateActualDuration()
{
    const Steps step(support_.errors, "updateActualDuration");
    Figures& figures = page_.figures;
    const double found = figures.plannedSeconds ? actualSeconds(step) : -1.0;
    const double seconds = found > 0.0 ? found : figures.plannedSeconds.value_or(-1.0);
    figures.actualSeconds = seconds >= 0.0 && std::isfinite(seconds) ? std::optional(seconds) : std::nullopt;
    followClock();
}

void Estimate::followClock()
{
    const Steps step(support_.errors, "updateActualDuration");
    Figures& figures = page_.figures;
    figures.stopTime.reset();
    if (figures.actualSeconds && page_.optStopTime.value() && !page_.txtStartTime.text().empty())
        step([&] {
            const DateTime start = recording_.timeIn(page_.txtStartTime);
            const DateTime stop = dateAdd(TimeUnit::seconds, *figures.actualSeconds, start);
            const bool isInNextDay = !start.hasDate() && stop.hasDate();
            figures.stopTime = isInNextDay ? momentsOf(page_, support_).actualStop : stop;
        });
    showActualDuration(step);
}

void Estimate::showActualDuration(const Steps& step)
{
    const Figures& figures = page_.figures;
    const ComboBox& unit = page_.cmbInterval;
    page_.lblDurationValue.setCaption(textOf(step, figures.actualSeconds, [&](double seconds) {
        return numberText(toHundredths(seconds / unit.itemData()), support_.locale()) + " " + unit.text();
    }));
    const bool atTime = page_.optStopTime.value();
    if (atTime)
        page_.lblStopTimeValue.setCaption(
            textOf(step, figures.stopTime, [this](DateTime stop) { return generalDate(stop, support_.locale()); }));
    page_.lblStopTime.setVisible(atTime);
    page_.lblStopTimeValue.setVisible(atTime);
}

} // namespace ko
