#pragma once

#include "interfaces/Timebase.h"
#include "page/LimitRefusal.h"
#include "page/Page.h"
#include "page/Timebases.h"
#include "support/Steps.h"
#include "support/TextNumbers.h"
#include "support/Validation.h"

#include <algorithm>
#include <array>
#include <span>

namespace ko {

/// A number of a timebase: a period in seconds or a block size in samples.
struct TimebaseNumber {
    std::string_view name; ///< in set-up files and scripts: "samplePeriod"
    double (Timebase::*get)();
    void (Timebase::*set)(double);
    std::vector<double> (Timebase::*choices)(); ///< the discrete values that a driver offers
    Range (Timebase::*range)();                 ///< the range that it offers when there are none
    OfferAccount Page::*offers;                 ///< the drivers' common offer
    bool isPeriod;                              ///< accepts only numbers above 0 with a finite reciprocal
    bool toAllDrivers;                          ///< true: written to every driver; false: to the current dynamic one
    Frame Page::*frame;                         ///< contains its editors
    std::optional<double> SizeSettings::*size;  ///< its member there
};

namespace timebaseNumber {
inline constexpr TimebaseNumber samplePeriod{"samplePeriod",
                                             &Timebase::SamplePeriod,
                                             &Timebase::setSamplePeriod,
                                             &Timebase::SampleChoiceList,
                                             &Timebase::ChoiceRange,
                                             &Page::samplePeriodOffers,
                                             true,
                                             false,
                                             &Page::frmDynamic,
                                             &SizeSettings::samplePeriod};
inline constexpr TimebaseNumber blockSize{"blockSize",
                                          &Timebase::BlockSize,
                                          &Timebase::setBlockSize,
                                          &Timebase::BlockSizeChoiceList,
                                          &Timebase::BlockSizeRange,
                                          &Page::blockSizeOffers,
                                          false,
                                          false,
                                          &Page::frmDynamic,
                                          &SizeSettings::blockSize};
inline constexpr TimebaseNumber scanPeriod{"scanPeriod",
                                           &Timebase::ScanPeriod,
                                           &Timebase::setScanPeriod,
                                           &Timebase::ScanChoiceList,
                                           &Timebase::ChoiceRange,
                                           &Page::scanPeriodOffers,
                                           true,
                                           true,
                                           &Page::frmStatic,
                                           &SizeSettings::scanPeriod};
inline constexpr std::array all{&samplePeriod, &blockSize, &scanPeriod};
} // namespace timebaseNumber

/// A quantity that the page edits: a number of a timebase as its controls show it.
struct Quantity {
    std::string_view name; ///< in settings and scripts: "sample-rate"
    std::string_view unit; ///< symbol
    const TimebaseNumber* number;
    bool isRate; ///< shows the reciprocal of the number
    NumberType type;
    int captionText, toolTipText; ///< numbers in the string table
    Label Page::*label;
    ComboBox Page::*list;        ///< shown when the drivers share discrete values
    TextBox Page::*box;          ///< shown otherwise
    CommandButton Page::*button; ///< explains what the drivers offer
    CommandButton Page::*mark;   ///< shown while drivers hold another number than the one shown

    /// Convert between the number that a driver holds and the number shown. Failure 11 for the reciprocal of 0.
    [[nodiscard]] double shown(double held) const;
    [[nodiscard]] double held(double shown) const { return this->shown(shown); }

    /// The bounds that all drivers accept, in the quantity's unit.
    [[nodiscard]] NumberBounds bounds(const Page& page) const;
};

/// All quantities, in the order of the page. A new one needs a row here, its controls in `Page` and its texts.
inline constexpr std::array quantities{
    Quantity{"sample-rate", "Sa/s", &timebaseNumber::samplePeriod, true, NumberType::Double,
             textNumber::page::sampleRate, textNumber::page::sampleRateHint, &Page::lblSampleRate, &Page::cmbSampleRate,
             &Page::txtSampleRate, &Page::cmdSampleRateOffers, &Page::cmdSampleRateDiffers},
    Quantity{"sample-period", "s", &timebaseNumber::samplePeriod, false, NumberType::Double,
             textNumber::page::samplePeriod, textNumber::page::samplePeriodHint, &Page::lblSamplePeriod,
             &Page::cmbSamplePeriod, &Page::txtSamplePeriod, &Page::cmdSamplePeriodOffers,
             &Page::cmdSamplePeriodDiffers},
    Quantity{"block-size", "Sa", &timebaseNumber::blockSize, false, NumberType::Long, textNumber::page::blockSize,
             textNumber::page::blockSizeHint, &Page::lblBlockSize, &Page::cmbBlockSize, &Page::txtBlockSize,
             &Page::cmdBlockSizeOffers, &Page::cmdBlockSizeDiffers},
    Quantity{"scan-rate", "Sc/s", &timebaseNumber::scanPeriod, true, NumberType::Double, textNumber::page::scanRate,
             textNumber::page::scanRateHint, &Page::lblScanRate, &Page::cmbScanRate, &Page::txtScanRate,
             &Page::cmdScanRateOffers, &Page::cmdScanRateDiffers},
    Quantity{"scan-period", "s", &timebaseNumber::scanPeriod, false, NumberType::Double, textNumber::page::scanPeriod,
             textNumber::page::scanPeriodHint, &Page::lblScanPeriod, &Page::cmbScanPeriod, &Page::txtScanPeriod,
             &Page::cmdScanPeriodOffers, &Page::cmdScanPeriodDiffers},
};

/// Calls `visit(const Quantity&)` for each quantity that shows the number, rate before period.
template <class Visit> void forEachQuantityOf(const TimebaseNumber& number, Visit&& visit)
{
    for (const Quantity& quantity : quantities)
        if (quantity.number == &number)
            visit(quantity);
}

/// The quantity that shows a period as a rate.
inline const Quantity& rateOf(const TimebaseNumber& period)
{
    return *std::find_if(quantities.begin(), quantities.end(),
                         [&](const Quantity& quantity) { return quantity.number == &period && quantity.isRate; });
}

/// The timebase whose number the editors show: that of the current dynamic driver or, for a number that is written to
/// every driver, that of the current static driver, else of the first static driver that has a timebase, else the first
/// of all. Failures of the current driver reach the caller.
IndexedTimebase shownTimebase(const Page& page, const TimebaseNumber& number);

/// A number to be written to drivers, for `GuardedWrite`.
struct NumberSetting {
    const TimebaseNumber* number = nullptr;
    std::optional<double> value;

    [[nodiscard]] NumberSetting read(const Steps& step, Timebase& timebase) const;
    bool write(const Steps& step, Timebase& timebase) const;
    [[nodiscard]] NumberSetting without(const NumberSetting& other) const
    {
        return value == other.value ? NumberSetting{} : *this;
    }
    [[nodiscard]] bool isEmpty() const { return !value; }
    [[nodiscard]] bool isLike(const NumberSetting& other) const { return isEmpty() == other.isEmpty(); }
    [[nodiscard]] SizeSettings sizeSettings() const;
};

} // namespace ko
