#include "host/support/StandardStreams.h"

#include "host/support/InputError.h"

#include <cerrno>
#include <cstdio>
#include <iostream>
#include <system_error>

namespace ko {

void complain(const std::string& what)
{
    constexpr std::size_t most = 2000; // bytes
    std::fprintf(stderr, "korvell-host: %s\n", shortLine(what, most).c_str());
}

void finishOutput()
{
    errno = 0;
    std::cout.flush();
    if (std::cout.good())
        return;
    const std::string reason = errno ? ": " + std::generic_category().message(errno) : std::string();
    throw InputError("standard output cannot be written" + reason);
}

} // namespace ko
