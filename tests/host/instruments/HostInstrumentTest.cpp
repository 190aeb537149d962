#include "fakes/Thrown.h"
#include "host/setup/SetupFile.h"
#include "host/setup/SetupWriter.h"

#include <gtest/gtest.h>
#include <limits>

namespace ko {
namespace {

std::shared_ptr<HostInstrument> driverOf(const std::string& members)
{
    return makeDrivers(parseSetup("{\"drivers\": [{\"name\": \"d\"" + members + "}]}", "test.json")).front();
}

using test::failureOf;

TEST(HostInstrumentTest, AQuantityKeepsOfARequestWhatItsRuleSays)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const struct {
        const char* quantity;
        double requested, kept;
    } cases[]{
        {R"({"value": 5})", 7.25, 7.25},
        {R"({"value": 5})", infinity, 5},
        {R"({"value": 5, "choices": [1, 2, 8]})", 7, 8},
        {R"({"value": 5, "choices": [8, 2, 1]})", 5, 8},
        {R"({"value": 5, "choices": [1, 2, 8]})", -infinity, 5},
        {R"({"value": 5, "range": [2, 9]})", 1, 2},
        {R"({"value": 5, "range": [2, 9]})", 10, 9},
        {R"({"value": 5, "range": [2, 9]})", 3.5, 3.5},
        {R"({"value": 5, "range": [0, 0]})", 3.5, 3.5},
        {R"({"value": 5, "range": [9, 2]})", 3.5, 9},
        {R"({"value": 5, "choices": [1, 2, 8], "range": [2, 9]})", 9, 8},
        {R"({"value": 5, "choices": [1, 2, 8], "range": [2, 9], "keeps": "clamp"})", 9.5, 9},
        {R"({"value": 5, "choices": [1, 2, 8], "keeps": "any"})", 3, 3},
        {R"({"value": 5, "choices": [1, 2, 8], "keeps": "nothing"})", 8, 5},
    };
    for (const auto& c : cases) {
        const auto driver = driverOf(std::string(R"(, "timebase": {"samplePeriod": )") + c.quantity +
                                     ", \"blockSize\": " + c.quantity + ", \"scanPeriod\": " + c.quantity + "}");
        Timebase& timebase = *driver->queryTimebase();
        timebase.setSamplePeriod(c.requested);
        timebase.setBlockSize(c.requested);
        timebase.setScanPeriod(c.requested);
        EXPECT_EQ(timebase.SamplePeriod(), c.kept) << c.quantity << c.requested;
        EXPECT_EQ(timebase.BlockSize(), c.kept) << c.quantity << c.requested;
        EXPECT_EQ(timebase.ScanPeriod(), c.kept) << c.quantity << c.requested;
    }
}

TEST(HostInstrumentTest, TheFiguresFollowFromTheTimebaseUnlessFixed)
{
    const std::string channels = R"(, "groups": [{"name": "g", "channels": [{"address": "1:1"},
        {"address": "1:2", "enabled": 0}, {"address": "1:3", "enabled": null}]}], "timebase": )";
    const auto timebase = [](const char* sample, const char* block, const char* scan, const char* duration) {
        return std::string("{\"samplePeriod\": {\"value\": ") + sample + "}, \"blockSize\": {\"value\": " + block +
               "}, \"scanPeriod\": {\"value\": " + scan + "}, \"duration\": " + duration + "}";
    };
    const struct {
        std::string members;
        double bytes; ///< negative: expected failure number
        std::int32_t scans;
    } cases[]{
        {channels + timebase("0.001", "1024", "0.1", "10"), 4 * 2 * 10240 + 416, 101},
        {channels + timebase("0.001", "0.5", "3", "10"), 4 * 2 * 10000 + 416, 4},
        {channels + timebase("0.5", "16", "3", "0"), 416, 1},
        {channels + timebase("0.001", "1024", "0.1", "25.6"), 4 * 2 * 25600 + 416, 257},
        {channels + timebase("0.1", "1", "0.1", "0.7"), 4 * 2 * 7 + 416, 8},
        {channels + timebase("0", "16", "1e-9", "10"), -failure::divisionByZero, -failure::overflow},
        {channels + timebase("1", "1", "0", "0"), 416, -failure::overflow},
        {"", -failure::noObject, -failure::noObject},
        {R"(, "dynamicBytes": 1e12, "numberOfScans": 7)", 1e12, 7},
    };
    for (const auto& c : cases) {
        const auto driver = driverOf(c.members);
        double bytes = 0;
        std::int32_t scans = 0;
        const auto failedBytes = failureOf([&] { bytes = driver->queryDynamicMeasurement()->DynamicBytes(); });
        const auto failedScans = failureOf([&] { scans = driver->queryStaticMeasurement()->NumberOfScans(); });
        EXPECT_EQ(failedBytes != 0 ? -failedBytes : bytes, c.bytes) << c.members;
        EXPECT_EQ(failedScans != 0 ? -failedScans : scans, c.scans) << c.members;
    }
}

TEST(HostInstrumentTest, ViewsAreOfferedOnlyWhereTheSetupHasThem)
{
    const auto bare = driverOf(R"(, "hasTriggerParameters": false)");
    EXPECT_FALSE(bare->queryTimebase() || bare->queryTriggerLines() || bare->queryTriggerParameters());
    const auto whole = driverOf(R"(, "timebase": {}, "triggerLines": {"scanMasterRank": 4})");
    ASSERT_TRUE(whole->queryTimebase() && whole->queryTriggerLines() && whole->queryTriggerParameters());
    EXPECT_EQ(whole->queryTriggerLines()->ScanMasterRank(), 4);
}

TEST(HostInstrumentTest, TriggerParametersAnswerByTypeAndFailOutsideTheirPlace)
{
    const auto driver = driverOf(R"(, "groups": [{"name": "g", "channels": [{"address": "1:1", "canTrigger": false,
        "triggerParameters": [{"id": 7, "name": "Level", "type": "Float", "max": 5, "value": 1},
        {"id": 8, "name": "Count", "type": "Integer", "value": 2},
        {"id": 9, "name": "Slope", "type": "Enum", "choices": ["Up"], "value": "Up"}]}]}])");
    TriggerParameters& parameters = *driver->queryTriggerParameters();
    EXPECT_EQ(parameters.GetTriggerParamId(0, 0, 2), 9);
    EXPECT_EQ(parameters.GetTriggerParamMax(0, 0, 7), 5.0);
    EXPECT_EQ(parameters.GetTriggerParamMin(0, 0, 7), std::numeric_limits<double>::lowest());
    EXPECT_EQ(parameters.GetTriggerParamMax(0, 0, 8), 2147483647.0);
    EXPECT_EQ(parameters.GetTriggerParamChoices(0, 0, 9), std::vector<std::string>{"Up"});
    EXPECT_FALSE(parameters.CanTrigger(0, 0));
    parameters.SetTriggerParamValue(0, 0, 7, std::int32_t{3});
    EXPECT_EQ(parameters.GetTriggerParamValue(0, 0, 7), Value{3.0});

    const std::pair<std::function<void()>, std::int32_t> failing[]{
        {[&] { parameters.GetTriggerParamCount(1, 0); }, failure::subscriptOutOfRange},
        {[&] { parameters.GetTriggerParamCount(0, -1); }, failure::subscriptOutOfRange},
        {[&] { parameters.GetTriggerParamId(0, 0, 3); }, failure::subscriptOutOfRange},
        {[&] { parameters.GetTriggerGroupName(-1); }, failure::subscriptOutOfRange},
        {[&] { parameters.GetTriggerParamName(0, 0, 1); }, failure::invalidCall},
        {[&] { parameters.GetTriggerParamMin(0, 0, 9); }, failure::invalidCall},
        {[&] { parameters.GetTriggerParamChoices(0, 0, 7); }, failure::invalidCall},
        {[&] { parameters.SetTriggerParamValue(0, 0, 8, 2.5); }, failure::typeMismatch},
        {[&] { parameters.SetTriggerParamValue(0, 0, 9, true); }, failure::typeMismatch},
        {[&] { driver->ChannelAttribute(0, 0, 4); }, failure::invalidCall},
    };
    for (const auto& [call, number] : failing)
        EXPECT_EQ(failureOf(call), number) << &call - &failing[0].first;
}

TEST(HostInstrumentTest, EveryOperationIsFoundByTheNameThatItIsFailedWith)
{
    for (int i = 0; i <= static_cast<int>(Operation::DynamicBytes); ++i) {
        const auto operation = static_cast<Operation>(i);
        EXPECT_EQ(findOperation(failingName(operation)), operation) << failingName(operation);
    }
    EXPECT_EQ(findOperation("StartTriggerInput"), Operation::StartTriggerInput);
    EXPECT_EQ(findOperation("SampleChoiceList"), Operation::SampleChoiceList);
    for (const char* const none : {"", "SamplePeriod", "SamplePeriod  set", "ScanMasterRank set", "GroupName get",
                                   "sampleperiod set", "Reserved"})
        EXPECT_FALSE(findOperation(none)) << none;
}

class CallTape final : public CallObserver {
public:
    bool observes(Operation) override { return true; }
    void called(const DriverCall& call) override
    {
        heard += std::string(operationName(call.operation)) + jsonText(call.value);
        heard += call.kept ? "->" + jsonText(*call.kept) + " " : " ";
    }
    void failed(const FailedCall& call) override
    {
        failures += std::string(operationName(call.operation)) + (call.value ? jsonText(*call.value) : "");
        failures += "!" + std::to_string(call.failure.number()) + " ";
    }

    std::string heard, failures;
};

TEST(HostInstrumentTest, AFailingCallIsCountedAndLeavesNoTraceButItsFailure)
{
    const auto driver = driverOf(R"(, "timebase": {}, "failing": ["BlockSize set"])");
    Timebase& timebase = *driver->queryTimebase();
    CallGate& calls = driver->calls();
    CallTape tape;
    calls.observe(&tape);
    EXPECT_EQ(failureOf([&] { timebase.setBlockSize(7); }), failure::unspecified);
    EXPECT_EQ(timebase.BlockSize(), 1024.0);
    EXPECT_TRUE(calls.heal("BlockSize set"));
    timebase.setBlockSize(7);

    EXPECT_TRUE(calls.fail({"#2", 5, "replaced"}));
    EXPECT_TRUE(calls.fail({"#2", 77, "second"}));
    EXPECT_TRUE(calls.fail({"DriverName", 5, "no name"}));
    EXPECT_TRUE(calls.fail({"DriverName", 6, "still none"}));
    EXPECT_TRUE(calls.fail({"#1", 7, "fails already"}));
    EXPECT_EQ(failureOf([&] { driver->DriverName(0); }), 6);
    EXPECT_EQ(calls.failing().front().operation, "#1");
    EXPECT_EQ(failureOf([&] { timebase.Duration(); }), 77);
    EXPECT_EQ(timebase.Duration(), 10.0F);
    EXPECT_EQ(driver->settings().failing, (std::vector<SimulatedFailure>{{"DriverName", 6, "still none"}}));
    calls.healAll();
    EXPECT_EQ(driver->DriverName(0), "d");
    EXPECT_EQ(tape.heard, "BlockSize1024.0 BlockSize7.0 Duration10.0 DriverName\"d\" ");
    EXPECT_EQ(tape.failures, "BlockSize7.0!-2147467259 DriverName!6 Duration!77 ");
    EXPECT_EQ(calls.callCount(), 7);
}

TEST(HostInstrumentTest, RestoringIsACallForEachSettingThatDiffers)
{
    const auto with = [](const char* number) {
        std::string text = R"(, "timebase": {"samplePeriod": {"value": #}, "blockSize": {"value": #},
            "scanPeriod": {"value": #}, "duration": #, "startTime": #, "stopMode": #, "startMode": #}, "triggerLines": {
            "startTriggerLine": #, "startTriggerInput": #, "scanTriggerLine": #, "scanTriggerInput": #}, "groups": [
            {"name": "g", "channels": [{"address": "1", "triggerParameters": [
                {"id": 3, "name": "p", "type": "Integer", "value": #},
                {"id": 4, "name": "q", "type": "Integer", "value": #}]}]}])";
        for (std::size_t at = 0; (at = text.find('#', at)) != std::string::npos;)
            text.replace(at, 1, number);
        return driverOf(text);
    };
    const auto driver = with("2");
    const InstrumentSettings earlier = with("1")->held();
    CallTape tape;
    driver->calls().observe(&tape);
    for (int times = 0; times < 2; ++times)
        driver->restore(earlier);
    EXPECT_EQ(tape.heard, "SamplePeriod1.0 BlockSize1.0 ScanPeriod1.0 Duration1.0 StartTime1.0 StopMode1 StartMode1 "
                          "StartTriggerLine1 StartTriggerInput1 ScanTriggerLine1 ScanTriggerInput1 "
                          "SetTriggerParamValue1 SetTriggerParamValue1 ");
    EXPECT_EQ(driver->held(), earlier);
}

TEST(HostInstrumentTest, AnObserverIsNotifiedOfKeptValuesAndOfTheDriversOwnRefusals)
{
    const auto driver = driverOf(R"(, "timebase": {"samplePeriod": {"value": 2, "choices": [1, 2, 8]},
        "scanPeriod": {"value": 5, "keeps": "nothing"}}, "groups": [{"name": "g", "channels": [{"address": "0:1",
        "enabled": "yes", "triggerParameters": [{"id": 2, "name": "Level", "type": "Float", "value": 1}]}]}])");
    CallTape tape;
    driver->calls().observe(&tape);
    Timebase& timebase = *driver->queryTimebase();
    timebase.setSamplePeriod(8);
    timebase.setSamplePeriod(7);
    timebase.setScanPeriod(6);
    timebase.setStopMode(1);
    TriggerParameters& parameters = *driver->queryTriggerParameters();
    parameters.SetTriggerParamValue(0, 0, 2, 0.5);
    EXPECT_EQ(failureOf([&] { parameters.SetTriggerParamValue(0, 0, 2, std::string("\u00e4")); }),
              failure::typeMismatch);
    EXPECT_EQ(failureOf([&] { parameters.TriggerEnabled(1, 0); }), failure::subscriptOutOfRange);
    EXPECT_EQ(tape.heard, "SamplePeriod8.0 SamplePeriod7.0->8.0 ScanPeriod6.0->5.0 StopMode1 SetTriggerParamValue0.5 ");
    EXPECT_EQ(tape.failures, "SetTriggerParamValue\"\u00e4\"!13 TriggerEnabled!9 ");

    driver->enableChannel(0, 0, false);
    EXPECT_EQ(driver->ChannelAttribute(0, 0, attribute::enabled), Value{std::int32_t{0}});
    driver->enableChannel(0, 0, true);
    EXPECT_TRUE(driver->held().groups[0].channels[0].isEnabled());
}

} // namespace
} // namespace ko
