#include "document/TimebaseEditor.h"
#include "fakes/FakeDriver.h"
#include "fakes/FakePlatform.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

std::size_t allocations = 0;

} // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc): a replacement of operator new cannot use it

// Not inlined: an optimizing compiler that inlines only some of these warns of mismatched new and delete.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

// NOLINTEND(cppcoreguidelines-no-malloc)

namespace ko::test {
namespace {

/// Counts the allocations for the first key typed into each box of a page with this number of drivers.
std::vector<std::size_t> allocationsByKey(int drivers)
{
    FakePlatform host;
    Shared shared{host.platform, {}};
    TimebaseEditor editor{shared, host};
    Document& document = editor;
    DriverList list;
    for (int i = 0; i < drivers; ++i) {
        const auto driver = std::make_shared<FakeDriver>();
        driver->samplingMode = 1 + i % 2;
        driver->groups = {{"Inputs", std::vector<FakeDriver::Channel>(4)}};
        driver->sampleRange = driver->scanRange = {1e-6, 100};
        driver->blockRange = {16, 65536};
        driver->notes = false;
        list.push_back(driver);
    }
    document.drivers().setNumberOfDrivers(drivers);
    document.drivers().setDrivers(list);
    document.UserDocument_Show();
    Page& page = document.page();
    std::vector<std::size_t> counts;
    for (TextBox* box : {&page.txtSampleRate, &page.txtSamplePeriod, &page.txtBlockSize, &page.txtScanRate,
                         &page.txtScanPeriod, &page.txtDuration}) {
        EXPECT_TRUE(page.moveFocus(box));
        const int changes = host.changes;
        const std::size_t before = allocations;
        box->userTyped("64");
        counts.push_back(allocations - before);
        EXPECT_EQ(host.changes, changes + 1) << box->name();
    }
    return counts;
}

TEST(AllocationsTest, AKeyTypedTakesNoMoreMemoryWithMoreDrivers)
{
    // Numbers with as many digits, because the page counts the drivers that differ.
    EXPECT_EQ(allocationsByKey(900), allocationsByKey(300));
}

} // namespace
} // namespace ko::test
