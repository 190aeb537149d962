#pragma once

#include "host/instruments/SimulatedDriver.h"
#include "host/scenario/EventLog.h"
#include "page/OfferAccount.h"

namespace ko {

/// What each driver offers, what that does to what all share, and what it made of the last value written.
Json offersJson(const OfferAccount& account, const SimulatedDrivers& drivers);

} // namespace ko
