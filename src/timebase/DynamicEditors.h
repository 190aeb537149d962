#pragma once

#include "page/Actions.h"
#include "page/NumberEntry.h"
#include "timebase/RatePeriodPair.h"

#include <memory>

namespace ko {

/// Sample rate, sample period and block size of the driver at `dynamicDriverIndex`, and the span.
class DynamicEditors {
public:
    /// Takes over the events of its controls. Everything passed in outlives the editors.
    DynamicEditors(Page& page, Support& support, Actions& actions);
    ~DynamicEditors();

    /// Builds the rate and period editors for the period in force in seconds (none: not known) and writes the span.
    void initSampleRateEditors(std::optional<double> period);

    /// Builds the block-size editors for a block size in samples (none: not known); the block size that is shown.
    std::optional<double> initBlockSizeEditors(std::optional<double> size);

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

    /// What is written to the driver: the sample period in seconds or the block size in samples.
    struct Quantity {
        double (Timebase::*get)();
        void (Timebase::*set)(double);
        OfferAccount Page::*offers;
        bool hasPartner; ///< another box shows the same in another form
    };
    static constexpr Quantity samplePeriod{&Timebase::SamplePeriod, &Timebase::setSamplePeriod,
                                           &Page::samplePeriodOffers, true};
    static constexpr Quantity blockSize{&Timebase::BlockSize, &Timebase::setBlockSize, &Page::blockSizeOffers, false};

    /// Writes a typed value to the driver, reads back, checks the limit, and shows what became of it everywhere but in
    /// `typedIn`; where it could not be read back the partner shows what was requested. `before` is the value known to
    /// be in force, which is not read again.
    Written writeTyped(const Steps& step, const Quantity& quantity, double value, const std::optional<Held>& before,
                       const TextBox& typedIn);

private:
    void cmbSampleRate_Click();
    void cmbSamplePeriod_Click();
    void cmbBlockSize_Click();

    Written write(const Steps& step, const Quantity& quantity, double value, const std::optional<Held>& known = {});
    void note(const Quantity& quantity, double asked, const std::optional<double>& kept);
    void choose(const Steps& step, ComboBox& chosen, const ComboBox& partner);
    void selectBlockSize(double samples);
    void showSpan(const Steps& step, std::optional<double> period);

    Page& page_;
    Support& support_;
    Actions& actions_;
    RatePeriodPair pair_;
    std::vector<std::unique_ptr<NumberEntry>> entries_;
    std::vector<double> blockSizes_; ///< the entries of the block-size list

public:
    /// The editors' text boxes.
    [[nodiscard]] const std::vector<std::unique_ptr<NumberEntry>>& entries() const { return entries_; }
    /// The periods in the lists, in seconds; none while the boxes are shown.
    [[nodiscard]] const std::vector<double>& periods() const { return pair_.periods(); }
};

} // namespace ko
