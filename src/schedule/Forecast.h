#pragma once

#include "page/Page.h"

#include <functional>
#include <optional>
#include <vector>

namespace ko {

/// What the drivers' files would take with another duration or rate, from what they take now, by arithmetic alone:
/// nothing is written to find out. A driver is taken to keep a value as it is, to fill whole blocks, and to need for
/// each sample and each scan what it needs now.
class Forecast {
public:
    /// What is to change; what is not set stays as the drivers have it.
    struct Change {
        std::optional<float> seconds{};       ///< of every driver
        std::optional<double> samplePeriod{}; ///< of the driver that the dynamic editors show, in seconds
        std::optional<double> scanPeriod{};   ///< of every driver, in seconds
    };

    /// Reads the present settings and figures. A driver whose figure fails is left out, as in the estimate.
    explicit Forecast(const Page& page);

    /// As `Actions::updateDiskSpace` would answer after the change.
    [[nodiscard]] std::int32_t check(const Change& change) const;

private:
    /// A driver's settings, and how its file grows.
    struct File {
        bool isDynamic = false;
        bool takesSamplePeriod = false;
        double seconds = 0.0;
        double period = 0.0; ///< of its samples or scans
        double blockSize = 0.0;
        double present = 0.0; ///< bytes of a driver without a timebase, which no change reaches
        double bytesPerSample = 0.0;
        double scansOfFormula = 0.0; ///< how many scans it counts for each one that the formula gives
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

/// No number of this size or above is looked at.
inline constexpr double endless = 1e15;

/// The largest number of the range that fits: a whole one or, where no whole one does, one in tenths, hundredths and
/// so on down to `finest`. What fits at a number fits at every smaller one. None where nothing fits.
std::optional<double> largestThatFits(Range within, double finest, const std::function<bool(double)>& fits);

} // namespace ko
