#include "fuzz/Targets.h"

#include <cstdint>

/// One target as a program: `KO_FUZZ_TARGET` names it. An exception ends the program, and with it the search.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ko::fuzz::KO_FUZZ_TARGET.run({reinterpret_cast<const char*>(data), size});
    return 0;
}
