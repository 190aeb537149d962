#pragma once

#include "platform/Locale.h"

namespace ko {

/// The user's regional settings as the environment names them; what it does not name is English (United States).
Locale systemLocale();

} // namespace ko
