#include "schedule/Estimate.h"

#include "interfaces/Timebase.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "support/Numbers.h"

#include <algorithm>
#include <cmath>

namespace ko {

void Estimate::clear()
{
    page_.plannedSeconds.reset();
    page_.actualSeconds.reset();
    for (Label* count : {&page_.lblNumSamplesValue, &page_.lblNumScansValue, &page_.lblDurationValue})
        count->setCaption(page_.notApplicableText);
    for (LimitedLabel* bytes : {&page_.lblNumDynamicBytesValue, &page_.lblNumStaticBytesValue}) {
        bytes->setCaption(page_.notApplicableText);
        bytes->setShare(0.0);
    }
}

std::int32_t Estimate::updateDiskSpace()
{
    if (!page_.isDurationKnown)
        return diskSpace::fits;
    const Steps step(support_.errors, "updateDiskSpace");
    const auto seconds = step.value([&] { return std::optional(recording_.getDurationSeconds()); });
    page_.plannedSeconds = seconds;
    if (!seconds)
        return diskSpace::fits;
    Driver* scanned = page_.driverAt(page_.staticDriverIndex);
    const ByteTotals totals = sumDriverBytes(page_.currentDrivers(), scanned);
    const std::int32_t code = checkDiskSpace(totals, page_.hasDynamicDrivers, page_.hasStaticDrivers);
    std::optional<double> samplePeriod;
    if (code == diskSpace::fits) {
        if (page_.hasDynamicDrivers)
            samplePeriod = showDynamic(step, *seconds, totals.dynamicBytes);
        showStatic(step, scanned, totals);
    }
    updateActualDuration(samplePeriod);
    return code;
}

std::string Estimate::wholeNumber(const Steps& step, const std::function<double()>& number) const
{
    std::string text = page_.notApplicableText;
    step([&] { text = numberText(toLong(number()), support_.locale()); });
    return text;
}

void Estimate::showBytes(const Steps& step, LimitedLabel& label, double bytes)
{
    step([&] { label.setCaption(formatByteCount(support_, bytes)); });
    label.setShare(std::clamp(bytes / fileSizeLimit, 0.0, 1.0));
}

/// The sample period, where it was asked for.
std::optional<double> Estimate::showDynamic(const Steps& step, double seconds, double bytes)
{
    Timebase* timebase = step.value([&] { return page_.timebaseAt(page_.dynamicDriverIndex); });
    std::optional<double> period;
    const auto samples = [&] {
        period = timebase->SamplePeriod();
        return wholeBlocks(seconds / nonZero(*period), toLong(timebase->BlockSize()));
    };
    const bool known = timebase && seconds >= 0.0;
    page_.lblNumSamplesValue.setCaption(known ? wholeNumber(step, samples) : page_.notApplicableText);
    showBytes(step, page_.lblNumDynamicBytesValue, bytes);
    return period;
}

void Estimate::showStatic(const Steps& step, Driver* driver, const ByteTotals& totals)
{
    StaticMeasurement* measurement = nullptr;
    if (driver && !totals.scans)
        measurement = step.value([&] { return driver->queryStaticMeasurement(); });
    const auto scans = [&] { return static_cast<double>(totals.scans ? *totals.scans : measurement->NumberOfScans()); };
    const bool known = totals.scans || measurement;
    page_.lblNumScansValue.setCaption(known ? wholeNumber(step, scans) : page_.notApplicableText);
    showBytes(step, page_.lblNumStaticBytesValue, totals.staticBytes);
}

double Estimate::countIn(const Label& label) const
{
    return isNumeric(label.caption(), support_.locale()) ? toDouble(label.caption(), support_.locale()) : 0.0;
}

/// `intervals` periods of a driver, in seconds; 0 where there is nothing to multiply.
double Estimate::lasting(const Steps& step, double intervals, std::int32_t driver, double (Timebase::*period)()) const
{
    return step.value([&] {
        Timebase* timebase = intervals > 0.0 ? page_.timebaseAt(driver) : nullptr;
        return timebase ? intervals * (timebase->*period)() : 0.0;
    });
}

double Estimate::actualSeconds(const Steps& step, std::optional<double> samplePeriod) const
{
    const double intervals = countIn(page_.lblNumSamplesValue) - 1.0;
    const double scans = countIn(page_.lblNumScansValue);
    const double sampling = samplePeriod ? std::max(intervals, 0.0) * *samplePeriod
                                         : lasting(step, intervals, page_.dynamicDriverIndex, &Timebase::SamplePeriod);
    return largerOf(sampling, lasting(step, scans, page_.staticDriverIndex, &Timebase::ScanPeriod));
}

void Estimate::updateActualDuration(std::optional<double> samplePeriod)
{
    const Steps step(support_.errors, "updateActualDuration");
    double seconds = actualSeconds(step, samplePeriod);
    if (!(seconds > 0.0))
        seconds = step.value([&] { return recording_.getDurationSeconds(); });
    const ComboBox& unit = page_.cmbInterval;
    const bool isKnown = seconds >= 0.0 && std::isfinite(seconds);
    page_.actualSeconds = isKnown ? std::optional(seconds) : std::nullopt;
    std::string duration = page_.notApplicableText;
    if (isKnown)
        step([&] {
            duration = numberText(toHundredths(seconds / unit.itemData()), support_.locale()) + " " + unit.text();
        });
    page_.lblDurationValue.setCaption(duration);
    const bool atTime = !page_.optAfter.value();
    if (atTime) {
        std::string stop = page_.notApplicableText;
        step([&] { stop = recording_.computeStopTime('s', seconds, recording_.timeIn(page_.txtStartTime)); });
        page_.lblStopTimeValue.setCaption(stop);
    }
    page_.lblStopTime.setVisible(atTime);
    page_.lblStopTimeValue.setVisible(atTime);
}

} // namespace ko
