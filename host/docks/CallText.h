#pragma once

#include "host/instruments/CallValue.h"
#include "platform/Locale.h"
#include "widgets/support/Convert.h"

namespace ko {

/// Returns the value of a call to an instrument as a person writes it: 25.6, 0.5 – 2, Yes.
QString callText(const CallValue& value, const Texts& texts, const Locale& locale);

} // namespace ko
