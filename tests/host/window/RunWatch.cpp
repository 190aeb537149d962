#include "RunWatch.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <utility>

#ifdef KO_ADDRESS_SANITIZER
#include <sanitizer/common_interface_defs.h>
#endif

namespace ko::test {

namespace {

std::atomic<const std::vector<std::string>*> present = nullptr;
std::atomic<long> stepsBegun = 0;

void printPresent()
{
    if (const auto* const done = present.load())
        for (const std::string& line : *done)
            std::fprintf(stderr, "%s\n", line.c_str());
    std::fflush(stderr);
}

} // namespace

WatchedRun::WatchedRun(const std::vector<std::string>& done)
{
    present = &done;
}

WatchedRun::~WatchedRun()
{
    present = nullptr;
}

void WatchedRun::step() const
{
    ++stepsBegun;
}

long WatchedRun::steps()
{
    return stepsBegun;
}

void watchRuns()
{
#ifdef KO_ADDRESS_SANITIZER
    __sanitizer_set_death_callback(printPresent);
#endif
    std::thread([] {
        constexpr std::chrono::minutes longest(2);
        long before = -1;
        while (std::exchange(before, stepsBegun.load()) != before || !present)
            std::this_thread::sleep_for(longest);
        std::fputs("A step does not return:\n", stderr);
        printPresent();
        std::abort();
    }).detach();
}

} // namespace ko::test
