#include "faults/AnyUser.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <malloc.h>

namespace {

std::size_t bytesInUse = 0;

void release(void* memory)
{
    bytesInUse -= memory ? malloc_usable_size(memory) : 0;
    std::free(memory); // NOLINT(cppcoreguidelines-no-malloc)
}

} // namespace

// Counted here, because the allocator's own figures include freed memory that it keeps.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    void* const memory = std::malloc(size > 0 ? size : 1); // NOLINT(cppcoreguidelines-no-malloc)
    if (!memory)
        throw std::bad_alloc();
    bytesInUse += malloc_usable_size(memory);
    return memory;
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    release(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    release(memory);
}

namespace ko::test {

namespace {

void forgetNotes(Bench& bench, AnyUser& user)
{
    for (Texts* notes :
         {&bench.host.messages, &bench.host.reports, &bench.host.hints, &bench.host.printing, &user.done})
        Texts().swap(*notes);
    std::vector<std::int32_t>().swap(bench.host.topics);
    for (const auto& driver : bench.fakes) {
        Texts().swap(driver->writes);
        driver->calls.clear();
    }
}

/// Simulates an hour with an action per second, different each hour, and the same instruments at its end.
void useForAnHour(Bench& bench, AnyUser& user, std::uint32_t hour)
{
    for (std::uint32_t second = 0; second < 3600; ++second) {
        user.act(hour * 3600 + second);
        bench.host.time.days += 1.0 / 86400;
        forgetNotes(bench, user);
    }
    Draw draw(1);
    addAnyInstruments(bench, draw, false);
    bench.act("writable", [&] { bench.document().mode().setReadOnly(false); });
    bench.handOver();
    bench.show();
    forgetNotes(bench, user);
}

TEST(Soak, ADayOfUseTakesNoMoreMemoryThanItsFirstHours)
{
    Bench bench;
    AnyUser user(bench, true);
    std::vector<std::size_t> hours;
    for (std::uint32_t hour = 0; hour < 24; ++hour) {
        useForAnHour(bench, user, hour);
        hours.push_back(bytesInUse);
    }
    if (hours.back() == 0)
        GTEST_SKIP() << "something else stands for new here";
    std::cout << "bytes in use after each hour:";
    for (const std::size_t bytes : hours)
        std::cout << " " << bytes;
    std::cout << "\n";
    // Containers keep their capacity, so only the hours with the least memory show a leak.
    const auto middle = hours.begin() + 12;
    constexpr std::size_t room = 8192;
    EXPECT_LE(*std::min_element(middle, hours.end()), *std::min_element(hours.begin(), middle) + room);
}

} // namespace

} // namespace ko::test
