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
    if (!seconds)
        return diskSpace::fits;
    const ByteTotals totals = sumDriverBytes(page_.currentDrivers());
    const std::int32_t code = checkDiskSpace(totals, page_.hasDynamicDrivers, page_.hasStaticDrivers);
    if (code == diskSpace::fits) {
        if (page_.hasDynamicDrivers)
            showDynamic(step, *seconds, totals.dynamicBytes);
        showStatic(step, totals.staticBytes);
    }
    updateActualDuration();
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

void Estimate::showDynamic(const Steps& step, double seconds, double bytes)
{
    Timebase* timebase = step.value([&] { return page_.timebaseAt(page_.dynamicDriverIndex); });
    const auto samples = [&] {
        const double unrounded = seconds / nonZero(timebase->SamplePeriod());
        return wholeBlocks(unrounded, toLong(timebase->BlockSize()));
    };
    const bool known = timebase && seconds >= 0.0;
    page_.lblNumSamplesValue.setCaption(known ? wholeNumber(step, samples) : page_.notApplicableText);
    showBytes(step, page_.lblNumDynamicBytesValue, bytes);
}

void Estimate::showStatic(const Steps& step, double bytes)
{
    StaticMeasurement* measurement = step.value([&] {
        Driver* driver = page_.driverAt(page_.staticDriverIndex);
        return driver ? driver->queryStaticMeasurement() : nullptr;
    });
    const auto scans = [&] { return static_cast<double>(measurement->NumberOfScans()); };
    page_.lblNumScansValue.setCaption(measurement ? wholeNumber(step, scans) : page_.notApplicableText);
    showBytes(step, page_.lblNumStaticBytesValue, bytes);
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

double Estimate::actualSeconds(const Steps& step) const
{
    const double samples = countIn(page_.lblNumSamplesValue);
    const double scans = countIn(page_.lblNumScansValue);
    return largerOf(lasting(step, samples - 1.0, page_.dynamicDriverIndex, &Timebase::SamplePeriod),
                    lasting(step, scans, page_.staticDriverIndex, &Timebase::ScanPeriod));
}

void Estimate::updateActualDuration()
{
    const Steps step(support_.errors, "updateActualDuration");
    double seconds = actualSeconds(step);
    if (!(seconds > 0.0))
        seconds = step.value([&] { return recording_.getDurationSeconds(); });
    const ComboBox& unit = page_.cmbInterval;
    std::string duration = page_.notApplicableText;
    if (seconds >= 0.0 && std::isfinite(seconds))
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
