#include "schedule/Forecast.h"

#include "interfaces/Timebase.h"
#include "platform/Counts.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "support/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace ko {

namespace {

constexpr double bytesPerFile = 416.0;
constexpr double bytesPerValue = 4.0;
constexpr double bytesPerStaticChannel = 230.0;

/// Figures are integers of up to 32 bits.
bool isSameFigure(double one, double other)
{
    return std::abs(one - other) <= 1.0 + 1e-9 * std::abs(other);
}

bool isAny(const SizeSettings& settings)
{
    return settings.seconds || settings.samplePeriod || settings.blockSize || settings.scanPeriod;
}

/// The factor by which a value was kept above the one wanted.
template <class Number> double factor(const std::optional<Number>& kept, const std::optional<Number>& wanted)
{
    return kept && wanted && *wanted > Number{} ? double{*kept} / double{*wanted} : 1.0;
}

} // namespace

Forecast::Forecast(const Page& page, const LimitRefusal& refusal) : page_(page)
{
    const Drivers drivers = page.currentDrivers();
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        if (!drivers[i])
            continue;
        try {
            File file = read(*drivers[i]);
            file.isCurrent = static_cast<std::int32_t>(i) == page.dynamicDriverIndex;
            learn(file, refusal.wanted, i < refusal.tried.size() ? refusal.tried[i] : LimitRefusal::Tried{});
            files_.push_back(file);
        } catch (...) {
            continue;
        }
    }
}

/// Compares the computed figure with the one that the driver had after the refused change.
void Forecast::learn(File& file, const SizeSettings& wanted, const LimitRefusal::Tried& tried)
{
    SizeSettings kept = tried.kept;
    kept.ofEveryDriver = true;
    file.isFixed = file.isFixed || !isPlausible(file);
    if (!tried.bytes || !isAny(kept))
        return;
    const bool wasImplausible = std::exchange(file.isFixed, false);
    const double computed = grown(file, kept);
    if (isSameFigure(*tried.bytes, file.present)) {
        file.isFixed = wasImplausible || !isSameFigure(computed, file.present);
    } else {
        // A figure that grows more slowly than computed is no danger.
        const double block = file.isDynamic ? file.bytesPerSample * file.blockSize : 0.0;
        isReliable_ = isReliable_ && *tried.bytes <= computed + block + 1e-6 * *tried.bytes;
    }
    file.longerBy = std::max(factor(kept.seconds, wanted.seconds), 1.0);
    file.shorterBy = std::min(file.isDynamic ? factor(kept.samplePeriod, wanted.samplePeriod)
                                             : factor(kept.scanPeriod, wanted.scanPeriod),
                              1.0);
}

/// Whether the present figure can come from the present settings. Without a refused change there is nothing else to
/// learn from.
bool Forecast::isPlausible(const File& file)
{
    constexpr double mostBytesPerValue = 64.0;
    constexpr double mostScansOfFormula = 100.0;
    return file.isDynamic ? file.bytesPerSample <= mostBytesPerValue * std::max(file.channels, 1)
                          : file.scansOfFormula <= mostScansOfFormula;
}

Forecast::File Forecast::read(Driver& driver)
{
    File file;
    file.isDynamic = countsAsDynamic(driver);
    Timebase* timebase = driver.queryTimebase();
    file.isFixed = !timebase;
    if (timebase)
        file.seconds = widen(timebase->Duration());
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
    file.channels = countEnabledChannels(driver);
    file.period = nonZero(timebase->SamplePeriod());
    file.blockSize = timebase->BlockSize();
    const double now = samplesIn(file.seconds, file.period, file.blockSize);
    // The present size shows the size of a sample only if there are samples.
    file.bytesPerSample = now > 0.0 ? (file.present - bytesPerFile) / now : bytesPerValue * file.channels;
}

/// A present size beyond 32 bits does not fit, but a smaller one may.
void Forecast::readStatic(Driver& driver, Timebase* timebase, File& file)
{
    const std::int32_t now = required(driver.queryStaticMeasurement()).NumberOfScans();
    file.channels = countEnabledChannels(driver);
    if (!timebase) {
        file.present = staticBytes(now, file.channels);
        return;
    }
    file.period = nonZero(timebase->ScanPeriod());
    file.scansOfFormula = now / scansIn(file.seconds, file.period);
    try {
        file.present = staticBytes(now, file.channels);
    } catch (const Failure&) {
        file.present = std::numeric_limits<double>::infinity();
    }
}

/// The number of samples or scans after a change.
double Forecast::count(const File& file, const SizeSettings& change)
{
    const double seconds = change.seconds ? widen(*change.seconds) * file.longerBy : file.seconds;
    if (!file.isDynamic) {
        const double period = change.scanPeriod ? *change.scanPeriod * file.shorterBy : file.period;
        return std::ceil(scansIn(seconds, period) * file.scansOfFormula);
    }
    const bool takesAll = file.isCurrent || change.ofEveryDriver;
    return samplesIn(seconds, takesAll && change.samplePeriod ? *change.samplePeriod * file.shorterBy : file.period,
                     takesAll ? change.blockSize.value_or(file.blockSize) : file.blockSize);
}

/// As computed, even where the page cannot count that far.
double Forecast::grown(const File& file, const SizeSettings& change)
{
    const double values = count(file, change);
    return file.isDynamic ? bytesPerFile + file.bytesPerSample * values
                          : bytesPerFile + (bytesPerValue * values + bytesPerStaticChannel) * file.channels;
}

/// The page counts in 32 bits. Failure 6 when that is not enough for a static driver.
double Forecast::bytes(const File& file, const SizeSettings& change)
{
    if (file.isFixed)
        return file.present;
    if (!file.isDynamic)
        return staticBytes(toLong(count(file, change)), file.channels);
    const bool isCountable = count(file, change) <= std::numeric_limits<std::int32_t>::max();
    return isCountable ? grown(file, change) : std::numeric_limits<double>::infinity();
}

std::int32_t Forecast::check(const SizeSettings& change) const
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

bool Forecast::isBeyondLimit() const
{
    ByteTotals totals;
    for (const File& file : files_)
        (file.isDynamic ? totals.dynamicBytes : totals.staticBytes) += file.present;
    return std::max(totals.dynamicBytes, totals.staticBytes) > fileSizeLimit;
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
