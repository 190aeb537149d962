#pragma once

#include <string>
#include <vector>

namespace ko::test {

/// A run in progress, for a program that ends in it.
class WatchedRun {
public:
    /// `done` has the inputs of the run so far, a line each, and must outlive this object.
    explicit WatchedRun(const std::vector<std::string>& done);
    ~WatchedRun();
    WatchedRun(const WatchedRun&) = delete;
    WatchedRun& operator=(const WatchedRun&) = delete;

    /// Called before each step.
    void step() const;
    /// The number of steps of all runs.
    [[nodiscard]] static long steps();
};

/// From now on, a step that does not return ends the program; its end, and that by a sanitizer, print the inputs of the
/// run in progress.
void watchRuns();

} // namespace ko::test
