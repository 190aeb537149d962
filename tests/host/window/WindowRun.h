#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ko::test {

/// The seeds of the steps of a run; see `Workplace::step`.
using Seeds = std::vector<std::uint32_t>;

/// Uses a window by these steps and checks after each what must always hold, and in the end that undoing leads to the
/// start and saving to the same set-up. Returns what is broken, after a list of all inputs; empty if nothing is. With a
/// file, the run is captured there as far as a scenario can be.
std::string runWindow(const Seeds& steps, const std::string& scenario = {});

/// Returns the fewest of the steps that still break a promise, found by leaving out steps while one is broken.
Seeds fewestSteps(Seeds steps);

/// What all runs have done.
struct RunCounts {
    long steps = 0;
    long undone = 0; ///< edits at the ends of the runs
};
[[nodiscard]] RunCounts runCounts();

} // namespace ko::test
