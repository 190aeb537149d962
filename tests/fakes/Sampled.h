#pragma once

#include <cstdlib>

namespace ko::test {

/// Returns which of the cases that may be tried are: one in `usual`, all in a long run, and fewer under the address
/// sanitizer, where each takes several times as long.
template <class Count> Count sampledOneIn(Count usual)
{
    if (std::getenv("KO_LONG_RUN"))
        return 1;
#ifdef KO_ADDRESS_SANITIZER
    return 3 * usual;
#else
    return usual;
#endif
}

} // namespace ko::test
