#include "fakes/Sampled.h"
#include "faults/Bench.h"

#include <gtest/gtest.h>

#include <iostream>

namespace ko::test {

namespace {

/// An action of the host in the middle of an event.
struct Deed {
    const char* name;
    void (*play)(Bench&);

    friend std::ostream& operator<<(std::ostream& out, const Deed& deed) { return out << deed.name; }
};

/// Hands over `count` drivers, beginning with those of the bench unless `others` is set.
void handOver(Bench& bench, std::size_t count, bool others = false)
{
    DriverList list;
    if (!others)
        list.assign(bench.fakes.begin(), bench.fakes.begin() + static_cast<int>(std::min(count, bench.fakes.size())));
    while (list.size() < count) {
        const auto driver = std::make_shared<FakeDriver>();
        driver->samplingMode = list.size() % 2 == 0 ? 1 : 2;
        driver->gate = &bench.host.gate;
        list.push_back(driver);
    }
    bench.act("announce", [&] { bench.document().drivers().setNumberOfDrivers(static_cast<std::int32_t>(count)); });
    bench.act("hand over", [&] { bench.document().drivers().setDrivers(list); });
    bench.act("changed", [&] { bench.document().drivers().DriversHaveChanged(); });
}

const Deed deeds[] = {
    {"SameSize", [](Bench& bench) { handOver(bench, bench.fakes.size()); }},
    {"Longer", [](Bench& bench) { handOver(bench, bench.fakes.size() + 2); }},
    {"Shorter", [](Bench& bench) { handOver(bench, 1); }},
    {"Others", [](Bench& bench) { handOver(bench, 3, true); }},
    {"Empty", [](Bench& bench) { handOver(bench, 0); }},
    {"Hide", [](Bench& bench) { bench.act("hide", [&] { bench.document().UserDocument_Hide(); }); }},
    {"Show", [](Bench& bench) { bench.show(); }},
    {"ReadOnly", [](Bench& bench) { bench.act("read-only", [&] { bench.document().mode().setReadOnly(true); }); }},
    {"Writable", [](Bench& bench) { bench.act("writable", [&] { bench.document().mode().setReadOnly(false); }); }},
    {"End", [](Bench& bench) { bench.restart(); }},
};

Texts brokenWhereBuilt(const Page& page)
{
    return page.isShown && page.numDrivers > 0 ? brokenAlways(page) : Texts();
}

class NestedCalls : public testing::TestWithParam<Deed> {};

TEST_P(NestedCalls, LeaveNothingAndBreakNothingInsideAnyCall)
{
    long played = 0;
    // The first call of the sample depends on the deed, so that together they reach every call of a script (under the
    // sanitizers a third).
    const long stride = sampledOneIn(11L);
    long first = GetParam().name[0] % stride + 1;
    for (const Script& script : scripts) {
        Bench measured;
        script.play(measured);
        const long calls = measured.host.gate.calls;
        for (long call = first; call <= calls && !HasFailure(); call += stride, ++played) {
            SCOPED_TRACE(std::string(script.name) + ", call " + std::to_string(call));
            Bench bench;
            bench.host.gate.nested = call;
            bench.host.gate.act = [&] {
                if (bench.hasDocument())
                    GetParam().play(bench);
            };
            script.play(bench);
            EXPECT_EQ(bench.escaped, Texts());
            EXPECT_EQ(brokenWhereBuilt(bench.page()), Texts());
        }
        first = first % stride + 1;
    }
    std::cout << "played inside " << played << " calls\n";
}

TEST_P(NestedCalls, PutBackAValueThatTheLimitRefusesWhenTheyHappenInItsMessage)
{
    struct Entry {
        double (*value)(const FakeDriver&);
        void (*enter)(Bench&);
    };
    const Entry entries[] = {{[](const FakeDriver& it) -> double { return it.samplePeriod; },
                              [](Bench& bench) { bench.choose(bench.page().cmbSamplePeriod, 0); }},
                             {[](const FakeDriver& it) -> double { return it.scanPeriod; },
                              [](Bench& bench) { bench.choose(bench.page().cmbScanPeriod, 0); }},
                             {[](const FakeDriver& it) -> double { return it.duration; },
                              [](Bench& bench) { bench.replace(bench.page().txtDuration, "1e9"); }}};
    for (const Entry& entry : entries) {
        Bench bench;
        for (const std::int32_t samplingMode : {2, 1, 2}) {
            FakeDriver& driver = bench.addDriver(samplingMode);
            driver.groups = {{"Inputs", {{"0:1:0"}}}};
            driver.sampleChoices = driver.scanChoices = {1e-8, 0.5};
            driver.samplePeriod = driver.scanPeriod = 0.5;
            driver.bytes = [](const FakeDriver& d) { return 12.0 * d.duration / d.samplePeriod; };
            driver.scans = [](const FakeDriver& d) { return static_cast<std::int32_t>(d.duration / d.scanPeriod); };
        }
        bench.handOver();
        bench.show();
        const DriverList began(bench.fakes.begin(), bench.fakes.end());
        const double before = entry.value(*bench.fakes.front());
        int messages = 0;
        bench.host.inMessage = [&] { ++messages == 1 ? GetParam().play(bench) : void(); };
        entry.enter(bench);
        EXPECT_EQ(messages, 1);
        // The limit does not restore drivers that a new list lacks.
        const DriverList& list = bench.page().drivers;
        const bool isReplaced = !list.empty() || std::string_view(GetParam().name) == "Empty";
        for (const auto& driver : bench.fakes) {
            const bool isOurs = !isReplaced || std::find(list.begin(), list.end(), driver) != list.end();
            EXPECT_EQ(isOurs ? entry.value(*driver) : before, before);
        }
        EXPECT_EQ(bench.escaped, Texts());
        EXPECT_EQ(brokenWhereBuilt(bench.page()), Texts());
        EXPECT_EQ(bench.page().isShown && list == began ? shownWrongly(bench) : Texts(), Texts());
    }
}

INSTANTIATE_TEST_SUITE_P(All, NestedCalls, testing::ValuesIn(deeds),
                         [](const auto& deed) { return std::string(deed.param.name); });

} // namespace

} // namespace ko::test
