#pragma once

#include "page/Actions.h"
#include "timebase/RatePeriodPair.h"

#include <memory>

namespace ko {

class NumberEntry;

/// Sample rate, sample period and block size of the driver at `dynamicDriverIndex`, and the span.
class DynamicEditors {
public:
    /// Takes over the events of its controls. Everything passed in outlives the editors.
    DynamicEditors(Page& page, Support& support, Actions& actions);
    ~DynamicEditors();

    /// Builds the rate and period editors for the period in force in seconds (none: not known) and writes the span.
    void initSampleRateEditors(std::optional<double> samplePeriod);

    /// Builds the block-size editors for a block size in samples (none: not known); the block size that is shown.
    std::optional<double> initBlockSizeEditors(std::optional<double> blockSize);

    /// What became of a value written to the driver.
    struct Written {
        enum class Fate {
            NoDriver,
            Kept,     ///< the driver kept the value it had
            Accepted, ///< the driver holds another value now, not always the one written
            Refused   ///< beyond the limit: the user was told, the old value is back
        };
        Fate fate = Fate::NoDriver;
        std::optional<double> inForce; ///< none when it could not be read
    };

    /// Writes a sample period in seconds, a block size in samples, to the driver, reads back, checks the limit.
    Written writeSamplePeriod(const Steps& step, double seconds);
    Written writeBlockSize(const Steps& step, double samples);

    /// Shows what became of a requested sample period typed into one of the boxes; where it could not be read back
    /// the other box shows what was requested.
    void showWritten(const Steps& step, const Written& written, double requested, const TextBox& typedIn);

private:
    class SampleRateEntry;
    class SamplePeriodEntry;
    class BlockSizeEntry;
    using Get = double (Timebase::*)();
    using Set = void (Timebase::*)(double);

    void cmbSampleRate_Click();
    void cmbSamplePeriod_Click();
    void cmbBlockSize_Click();

    Written write(const Steps& step, Get get, Set set, double value);
    void choose(const Steps& step, ComboBox& chosen, const ComboBox& partner);
    void selectBlockSize(double samples);
    void showSpan(const Steps& step, std::optional<double> samplePeriod);

    Page& page_;
    Support& support_;
    Actions& actions_;
    RatePeriodPair pair_;
    std::vector<std::unique_ptr<NumberEntry>> entries_;
    std::vector<double> blockSizes_; ///< the entries of the block-size list

public:
    /// The editors' text boxes.
    [[nodiscard]] const std::vector<std::unique_ptr<NumberEntry>>& entries() const { return entries_; }
};

} // namespace ko
