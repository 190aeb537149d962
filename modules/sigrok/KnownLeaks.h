#pragma once

#ifdef KO_ADDRESS_SANITIZER
#include <sanitizer/lsan_interface.h>
#endif

namespace ko::sigrok {

/// While it lives, the leak sanitizer ignores what is allocated. For `sr_driver_scan` alone: the drivers of serial
/// instruments lose their port when no instrument answers on it.
#ifdef KO_ADDRESS_SANITIZER
using KnownLeaks = __lsan::ScopedDisabler;
#else
struct KnownLeaks {
    KnownLeaks() {} // NOLINT(modernize-use-equals-default): it is used without being read
};
#endif

} // namespace ko::sigrok
