#include "fakes/Sampled.h"
#include "faults/Bench.h"

#include <gtest/gtest.h>

#include <iostream>
#include <limits>

namespace ko::test {

namespace {

constexpr long forGood = std::numeric_limits<long>::max();

/// Plays a script while calls of the host fail, and then again without failures.
class Sweep {
public:
    explicit Sweep(Script script) : script_(script)
    {
        Bench bench;
        script.play(bench);
        bench.host.gate.calls = 0;
        script.play(bench);
        calls_ = bench.host.gate.calls;
        healthy_ = stateOf(bench);
        EXPECT_EQ(bench.host.reports, Texts());
        EXPECT_EQ(shownWrongly(bench), Texts());
    }

    [[nodiscard]] long calls() const { return calls_; }
    [[nodiscard]] long failed() const { return failed_; }

    /// Calls `first` to `last` fail.
    void run(long first, long last)
    {
        Bench bench;
        FaultGate& gate = bench.host.gate;
        gate.calls = 0;
        gate.first = first;
        gate.last = last;
        script_.play(bench);
        failed_ += gate.failed;
        gate.last = -1;
        SCOPED_TRACE("failing: " + gate.firstFailed + (last == first ? "" : " and what follows"));
        check(bench, last == first);
        script_.play(bench);
        EXPECT_EQ(differing(stateOf(bench), healthy_), Texts());
    }

    std::map<std::string, int> sources; ///< number of reports by source

private:
    static Texts differing(const Texts& found, const Texts& expected)
    {
        Texts result;
        for (std::size_t i = 0; i < std::max(found.size(), expected.size()); ++i)
            if (i >= found.size() || i >= expected.size() || found[i] != expected[i])
                result.push_back((i < found.size() ? found[i] : "") + " <> " +
                                 (i < expected.size() ? expected[i] : ""));
        return result;
    }
    void check(const Bench& bench, bool single)
    {
        EXPECT_EQ(bench.escaped, Texts());
        EXPECT_EQ(brokenAlways(bench.page()), Texts());
        EXPECT_LE(single ? totalBytes(bench) : 0.0, fileSizeLimit);
        long given = 0;
        for (const std::string& report : bench.host.reports) {
            EXPECT_EQ(report.rfind("KoTimebaseEditor:", 0), 0U) << report;
            ++sources[report.substr(0, report.find(' '))];
            given += report.find(bench.host.gate.firstFailed) != std::string::npos;
        }
        EXPECT_LE(given, 1) << testing::PrintToString(bench.host.reports);
        EXPECT_TRUE(!single || bench.host.reports.size() <= 1) << testing::PrintToString(bench.host.reports);
    }

    Script script_;
    long calls_ = 0;
    long failed_ = 0;
    Texts healthy_;
};

class FaultSweep : public testing::TestWithParam<Script> {};

TEST_P(FaultSweep, EveryCallMayFailAloneWithItsReportAndWithAllThatFollow)
{
    Sweep sweep(GetParam());
    const long alone = sampledOneIn(1L);
    const long stride = sampledOneIn(9L);
    for (long call = alone; call <= sweep.calls() && !HasFailure(); call += alone) {
        sweep.run(call, call);
        if (call % stride == 0) {
            sweep.run(call, call + 1);
            sweep.run(call, forGood);
        }
    }
    std::cout << "made to fail: " << sweep.calls() << " calls, " << sweep.failed() << " times in all, reported by "
              << sweep.sources.size() << " procedures\n";
}

INSTANTIATE_TEST_SUITE_P(All, FaultSweep, testing::ValuesIn(scripts),
                         [](const auto& script) { return script.param.name; });

} // namespace

} // namespace ko::test
