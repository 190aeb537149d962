#include "fuzz/Targets.h"

#include <cstdint>

/// Runs the target `KO_FUZZ_TARGET`. An exception ends the program and so reports the input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ko::fuzz::KO_FUZZ_TARGET.run({reinterpret_cast<const char*>(data), size});
    return 0;
}
