#pragma once

#include "page/LimitRefusal.h"
#include "page/Page.h"

#include <functional>
#include <optional>
#include <vector>

namespace ko {

/// Computes the size of the drivers' files with another duration or rate from their present size, without writing to a
/// driver. Assumes that a driver records whole blocks, uses as many bytes per sample and scan as now, and keeps a value
/// as exactly as it has kept the refused one. A figure that did not follow the refused change, or that cannot come from
/// the present settings, counts as fixed.
class Forecast {
public:
    /// Reads the present settings and figures, after the refused values have been restored. A driver whose figure fails
    /// is skipped, as in the estimate.
    Forecast(const Page& page, const LimitRefusal& refusal);

    /// Returns the code that `Actions::updateDiskSpace` would return after the change.
    [[nodiscard]] std::int32_t check(const SizeSettings& change) const;

    /// Whether the present settings exceed the limit. Unlike `check`, takes no missing figure for an overflow.
    [[nodiscard]] bool isBeyondLimit() const;

    /// False when a figure followed the refused change in another way than computed.
    [[nodiscard]] bool isReliable() const { return isReliable_; }

private:
    /// A driver's settings and the growth of its file.
    struct File {
        bool isDynamic = false;
        bool isCurrent = false; ///< the driver shown in the dynamic editors
        bool isFixed = false;   ///< no change affects its size
        double seconds = 0.0;
        double period = 0.0; ///< of its samples or scans
        double blockSize = 0.0;
        double present = 0.0; ///< bytes
        double bytesPerSample = 0.0;
        double scansOfFormula = 0.0; ///< ratio of the driver's number of scans to that of the formula
        std::int32_t channels = 0;
        double longerBy = 1.0;  ///< the factor by which it kept a refused duration longer
        double shorterBy = 1.0; ///< the factor by which it kept a refused period shorter
    };

    static File read(Driver& driver);
    static void readDynamic(Driver& driver, Timebase* timebase, File& file);
    static void readStatic(Driver& driver, Timebase* timebase, File& file);
    static bool isPlausible(const File& file);
    static double bytes(const File& file, const SizeSettings& change);
    static double count(const File& file, const SizeSettings& change);
    static double grown(const File& file, const SizeSettings& change);
    void learn(File& file, const SizeSettings& wanted, const LimitRefusal::Tried& tried);

    const Page& page_;
    std::vector<File> files_;
    bool isReliable_ = true;
};

/// Upper bound of the numbers that `largestThatFits` tries.
inline constexpr double endless = 1e15;

/// The largest number of the range that fits: an integer or, when no integer fits, a multiple of 0.1, 0.01 and so on
/// down to `finest`. `fits` must be monotonic: true for every number below one that fits. None when nothing fits.
std::optional<double> largestThatFits(Range within, double finest, const std::function<bool(double)>& fits);

} // namespace ko
