#pragma once

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace ko::sigrok {

/// While it lives, the leak sanitizer ignores what is allocated. For `sr_driver_scan` alone: the drivers of serial
/// instruments lose their port when no instrument answers on it.
#if defined(__SANITIZE_ADDRESS__)
using KnownLeaks = __lsan::ScopedDisabler;
#else
struct KnownLeaks {
    KnownLeaks() {} // NOLINT(modernize-use-equals-default): it is used without being read
};
#endif

} // namespace ko::sigrok
