#include "schedule/Forecast.h"

#include "interfaces/Timebase.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "support/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ko {

namespace {

constexpr double bytesPerFile = 416.0;
constexpr double bytesPerValue = 4.0;

} // namespace

Forecast::Forecast(const Page& page) : page_(page)
{
    const Drivers drivers = page.currentDrivers();
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        if (!drivers[i])
            continue;
        try {
            File file = read(*drivers[i]);
            file.takesSamplePeriod = static_cast<std::int32_t>(i) == page.dynamicDriverIndex;
            files_.push_back(file);
        } catch (...) {
            continue;
        }
    }
}

Forecast::File Forecast::read(Driver& driver)
{
    File file;
    file.isDynamic = countsAsDynamic(driver);
    Timebase* timebase = driver.queryTimebase();
    if (timebase)
        file.seconds = double{timebase->Duration()};
    if (file.isDynamic)
        readDynamic(driver, timebase, file);
    else
        readStatic(driver, timebase, file);
    return file;
}

void Forecast::readDynamic(Driver& driver, Timebase* timebase, File& file)
{
    file.present = dynamicDriverBytes(driver);
    if (!timebase)
        return;
    file.period = nonZero(timebase->SamplePeriod());
    file.blockSize = timebase->BlockSize();
    const double now = samples(file, file.seconds, file.period);
    // The present size shows the size of a sample only if there are samples.
    file.bytesPerSample =
        now > 0.0 ? (file.present - bytesPerFile) / now : bytesPerValue * countEnabledChannels(driver);
}

void Forecast::readStatic(Driver& driver, Timebase* timebase, File& file)
{
    const std::int32_t now = required(driver.queryStaticMeasurement()).NumberOfScans();
    file.channels = countEnabledChannels(driver);
    if (!timebase) {
        file.present = staticBytes(now, file.channels);
        return;
    }
    file.period = nonZero(timebase->ScanPeriod());
    file.scansOfFormula = now / scans(file.seconds, file.period);
}

/// A partial block counts as a whole one.
double Forecast::samples(const File& file, double seconds, double period)
{
    const double samples = seconds / period;
    return file.blockSize < 1.0 ? samples : std::ceil(samples / file.blockSize) * file.blockSize;
}

double Forecast::scans(double seconds, double period)
{
    return std::floor(seconds / period) + 1.0;
}

double Forecast::bytes(const File& file, const Change& change)
{
    if (file.period == 0.0)
        return file.present;
    const double seconds = change.seconds ? double{*change.seconds} : file.seconds;
    if (!file.isDynamic) {
        const double count = std::ceil(scans(seconds, change.scanPeriod.value_or(file.period)) * file.scansOfFormula);
        return staticBytes(toLong(count), file.channels);
    }
    const double count =
        samples(file, seconds, file.takesSamplePeriod ? change.samplePeriod.value_or(file.period) : file.period);
    // The page counts samples in 32 bits.
    return count <= std::numeric_limits<std::int32_t>::max() ? bytesPerFile + file.bytesPerSample * count
                                                             : std::numeric_limits<double>::infinity();
}

std::int32_t Forecast::check(const Change& change) const
{
    ByteTotals totals;
    for (const File& file : files_) {
        double& total = file.isDynamic ? totals.dynamicBytes : totals.staticBytes;
        try {
            total += bytes(file, change);
        } catch (...) {
            // The computation fails only when a number is too large.
            total = std::numeric_limits<double>::infinity();
        }
    }
    return checkDiskSpace(totals, page_.hasDynamicDrivers, page_.hasStaticDrivers);
}

std::optional<double> largestThatFits(Range within, double finest, const std::function<bool(double)>& fits)
{
    for (double scale = 1.0; 1.0 / scale >= finest; scale *= 10.0) {
        double low = std::max(std::ceil(within.minimum * scale), 1.0);
        double high = std::floor(std::min(within.maximum * scale, endless));
        if (low > high || !fits(low / scale))
            continue;
        while (low < high) {
            const double middle = std::ceil(low + (high - low) / 2.0);
            if (fits(middle / scale))
                low = middle;
            else
                high = middle - 1.0;
        }
        return low / scale;
    }
    return std::nullopt;
}

} // namespace ko
