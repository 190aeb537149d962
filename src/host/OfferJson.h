#pragma once

#include "host/EventLog.h"
#include "host/SimulatedDriver.h"
#include "page/Page.h"

#include <array>
#include <string_view>

namespace ko {

/// A quantity that the drivers offer choices or a range for.
struct OfferedQuantity {
    std::string_view name;    ///< as in set-up files
    std::string_view setting; ///< as on the command line
    OfferAccount Page::*account;
    Label Page::*label;
};

inline constexpr std::array offeredQuantities{
    OfferedQuantity{"samplePeriod", "sample-period", &Page::samplePeriodOffers, &Page::lblSamplePeriod},
    OfferedQuantity{"blockSize", "block-size", &Page::blockSizeOffers, &Page::lblBlockSize},
    OfferedQuantity{"scanPeriod", "scan-period", &Page::scanPeriodOffers, &Page::lblScanPeriod}};

/// What each driver offers, what that does to what all share, and what it made of the last value written.
Json offersJson(const OfferAccount& account, const SimulatedDrivers& drivers);

} // namespace ko
