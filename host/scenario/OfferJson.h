#pragma once

#include "host/instruments/HostInstrument.h"
#include "host/scenario/EventLog.h"
#include "page/OfferAccount.h"

namespace ko {

/// Returns for each driver what it offers, how that restricts what all drivers share, and what it kept of the last
/// value written.
Json offersJson(const OfferAccount& account, const HostInstruments& drivers);

} // namespace ko
