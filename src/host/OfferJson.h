#pragma once

#include "host/EventLog.h"
#include "host/SimulatedDriver.h"
#include "page/OfferAccount.h"

namespace ko {

/// What each driver offers, what that does to what all share, and what it made of the last value written.
Json offersJson(const OfferAccount& account, const SimulatedDrivers& drivers);

} // namespace ko
