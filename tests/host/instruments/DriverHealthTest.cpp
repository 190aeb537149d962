#include "host/instruments/DriverHealth.h"
#include "host/scenario/PlayedScenario.h"

namespace ko::test {
namespace {

const char* const unhealthyBench = R"({"clock": "2026-11-21 09:30:00", "drivers": [
  {"name": "Digitizer", "timebase": {"blockSize": {"value": 32, "range": [16, 1024]}}, "groups": [{"name": "Inputs", "channels": [{"address": "0:1"}]}]},
  {"name": "Scanner", "samplingMode": 2, "timebase": {}}]})";

/// Runs the script and returns the drivers that then fail, each as "NAME: OPERATION".
std::vector<std::string> failingAfter(const std::string& script)
{
    const Played run = play("quiet on\nsetup\nshow\n" + script + "\nfailing\n", unhealthyBench);
    EXPECT_EQ(run.fault, "");
    std::vector<std::string> names;
    const Json drivers = run.last("failing")["drivers"];
    for (const Json& driver : drivers)
        names.push_back(driver["name"].get<std::string>() + ": " + driver["operation"].get<std::string>());
    return names;
}

using Names = std::vector<std::string>;

TEST(DriverHealthTest, ADriverFailsFromItsFirstFailedCallUntilEachHasSucceeded)
{
    EXPECT_EQ(failingAfter("fail 0 \"SamplePeriod set\""), Names()) << "nobody has called yet";
    const std::string once = "fail 0 \"SamplePeriod set\"\ntext txtSamplePeriod 0.002\n";
    EXPECT_EQ(failingAfter(once), Names{"Digitizer: SamplePeriod set"});
    EXPECT_EQ(failingAfter(once + "text txtBlockSize 64"), Names{"Digitizer: SamplePeriod set"})
        << "other calls say nothing of it";
    EXPECT_EQ(failingAfter(once + "heal 0"), Names{"Digitizer: SamplePeriod set"}) << "nobody has called since";
    EXPECT_EQ(failingAfter(once + "heal 0\ntext txtSamplePeriod 0.003"), Names());
    const std::string twice = once + "fail 0 \"BlockSize set\"\ntext txtBlockSize 64\n";
    EXPECT_EQ(failingAfter(twice), Names{"Digitizer: BlockSize set"}) << "the last one";
    EXPECT_EQ(failingAfter(twice + "heal 0\ntext txtBlockSize 128"), Names{"Digitizer: SamplePeriod set"})
        << "one is still open";
    EXPECT_EQ(failingAfter(once + "fail Scanner \"ScanPeriod set\"\ntext txtScanPeriod 0.2"),
              (Names{"Digitizer: SamplePeriod set", "Scanner: ScanPeriod set"}));
}

TEST(DriverHealthTest, ARebuildAnswersForTheOperationsThatItCalls)
{
    const std::string read = "fail 0 \"BlockSize get\"\nshow\n";
    const std::string once = "fail 0 \"SamplePeriod set\"\ntext txtSamplePeriod 0.002\n";
    for (const char* rebuild : {"setup", "show", "read-only on"}) {
        EXPECT_EQ(failingAfter(read + rebuild), Names{"Digitizer: BlockSize get"}) << rebuild;
        EXPECT_EQ(failingAfter(read + "heal 0\n" + rebuild), Names()) << rebuild;
        EXPECT_EQ(failingAfter(once + read + "heal 0\n" + rebuild), Names{"Digitizer: SamplePeriod set"})
            << rebuild << " writes no sample period";
        EXPECT_EQ(failingAfter(once + "fail 0 \"SampleChoiceList get\"\n" + rebuild),
                  Names{"Digitizer: SampleChoiceList get"})
            << rebuild;
    }
    EXPECT_EQ(failingAfter(read + "heal 0\ndrivers-changed"), Names{"Digitizer: BlockSize get"}) << "builds no page";
    EXPECT_EQ(failingAfter(read + "heal 0\nhide\nsetup"), Names{"Digitizer: BlockSize get"})
        << "a hidden page is not built";
    EXPECT_EQ(failingAfter(read + "heal 0\nannounce 1\nhand-over 0\nshow"), Names{"Digitizer: BlockSize get"})
        << "a driver that is not called has not answered";
}

TEST(DriverHealthTest, ACallIsIdentifiedByItsArgumentsAndReportedWithReasonAndTime)
{
    const std::string script =
        "quiet on\nsetup\nshow\nfail 0 \"SamplePeriod set\" 77 stuck\nclock \"2026-11-21 12:00:00\"\n"
        "text txtSamplePeriod 0.002\nfailing\n";
    const Json driver = play(script, unhealthyBench).last("failing")["drivers"].at(0);
    EXPECT_EQ(driver["driver"], 0);
    EXPECT_EQ(driver["number"], 77);
    EXPECT_EQ(driver["reason"], "stuck");
    EXPECT_EQ(driver["time"], 46347.5);

    DriverHealth health([] { return DateTime{}; });
    const HostInstruments drivers = makeDrivers(parseSetup(unhealthyBench, "bench.json"));
    health.watch(drivers);
    const Failure failure(9, "no");
    const CallValue none;
    health.failed(*drivers[0], {Operation::ChannelCount, {7}, std::nullopt, failure});
    EXPECT_TRUE(health.awaits(*drivers[0], Operation::ChannelCount));
    EXPECT_FALSE(health.awaits(*drivers[0], Operation::GroupName));
    EXPECT_FALSE(health.awaits(*drivers[1], Operation::ChannelCount));
    health.answered(*drivers[0], {Operation::ChannelCount, {6}, none, std::nullopt});
    EXPECT_EQ(health.failing().size(), 1U) << "another group";
    health.answered(*drivers[0], {Operation::ChannelCount, {7}, none, std::nullopt});
    EXPECT_EQ(health.failing().size(), 0U);

    const auto fail = [&](std::int32_t group) {
        health.failed(*drivers[0], {Operation::ChannelCount, {group}, std::nullopt, failure});
    };
    const auto answer = [&] { health.answered(*drivers[0], {Operation::ChannelCount, {6}, none, std::nullopt}); };
    fail(7);
    health.rebuild([&] { answer(), fail(8); });
    EXPECT_EQ(health.failing().size(), 1U);
    health.rebuild(answer);
    EXPECT_EQ(health.failing().size(), 0U) << "there may be no such group any more";
}

TEST(DriverHealthTest, ScenariosExpectADriverToFailOrNot)
{
    EXPECT_TRUE(play("setup\nshow\nexpect-failing 0 none\nfail 0 \"SamplePeriod set\"\ntext txtSamplePeriod 0.002\n"
                     "expect-failing Digitizer \"SamplePeriod set\"\nexpect-failing Scanner none\n",
                     unhealthyBench)
                    .expectationsMet);
    const Played run = play("setup\nshow\nexpect-failing 1 \"SamplePeriod get\"\n", unhealthyBench);
    EXPECT_FALSE(run.expectationsMet);
    EXPECT_EQ(run.only({"expectation"}),
              R"({"line":3,"event":"expectation","driver":"1","expected":"SamplePeriod get","actual":"none"})"
              "\n");
    EXPECT_EQ(play("expect-failing 0 Anything\n", unhealthyBench).fault,
              R"(1: "Anything" is no operation that can fail)");
    EXPECT_NE(play("expect-failing 2 none\n", unhealthyBench).fault, "");
}

} // namespace
} // namespace ko::test
