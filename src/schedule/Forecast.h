#pragma once

#include "page/Page.h"

#include <functional>
#include <optional>
#include <vector>

namespace ko {

/// Computes the size of the drivers' files with another duration or rate from their present size, without writing to a
/// driver. Assumes that a driver keeps each value exactly, records whole blocks, and uses as many bytes per sample and
/// scan as now.
class Forecast {
public:
    /// The changes; a member that is not set stays as the drivers have it.
    struct Change {
        std::optional<float> seconds{};       ///< of every driver
        std::optional<double> samplePeriod{}; ///< of the driver shown in the dynamic editors, in seconds
        std::optional<double> scanPeriod{};   ///< of every driver, in seconds
    };

    /// Reads the present settings and figures. A driver whose figure fails is skipped, as in the estimate.
    explicit Forecast(const Page& page);

    /// Returns the code that `Actions::updateDiskSpace` would return after the change.
    [[nodiscard]] std::int32_t check(const Change& change) const;

private:
    /// A driver's settings and the growth of its file.
    struct File {
        bool isDynamic = false;
        bool takesSamplePeriod = false;
        double seconds = 0.0;
        double period = 0.0; ///< of its samples or scans
        double blockSize = 0.0;
        double present = 0.0; ///< bytes of a driver without a timebase, which no change affects
        double bytesPerSample = 0.0;
        double scansOfFormula = 0.0; ///< ratio of the driver's number of scans to that of the formula
        std::int32_t channels = 0;
    };

    static File read(Driver& driver);
    static void readDynamic(Driver& driver, Timebase* timebase, File& file);
    static void readStatic(Driver& driver, Timebase* timebase, File& file);
    static double bytes(const File& file, const Change& change);
    static double samples(const File& file, double seconds, double period);
    static double scans(double seconds, double period);

    const Page& page_;
    std::vector<File> files_;
};

/// Upper bound of the numbers that `largestThatFits` tries.
inline constexpr double endless = 1e15;

/// The largest number of the range that fits: an integer or, when no integer fits, a multiple of 0.1, 0.01 and so on
/// down to `finest`. `fits` must be monotonic: true for every number below one that fits. None when nothing fits.
std::optional<double> largestThatFits(Range within, double finest, const std::function<bool(double)>& fits);

} // namespace ko
