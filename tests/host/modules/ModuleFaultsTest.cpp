#include "fakes/Folder.h"
#include "host/modules/ScriptedModule.h"
#include "host/recording/Monitor.h"
#include "host/scenario/PlayedScenario.h"

namespace ko {
namespace {

using namespace test;

/// The device of a module, and a simulated instrument with as many samples.
const std::string bench = R"({"drivers": [
  {"name": "Device", "module": "scripted", "device": "a", "timebase": {"duration": 0.05, "blockSize": {"value": 10}},
   "groups": [{"name": "g", "channels": [{"address": "1:1", "triggerSource": true}]}],
   "triggerLines": {"startMasterRank": 5}},
  {"name": "Other", "groups": [{"name": "g", "channels": [{"address": "9:1"}]}],
   "timebase": {"samplePeriod": {"value": 0.001}, "blockSize": {"value": 10}, "duration": 0.05}}]})";

class ModuleFaultsTest : public testing::Test {
protected:
    Played played(const std::string& steps, const SharedScript& script)
    {
        return play("setup\nshow\n" + steps + "\nstate", bench, folder_.path.string(),
                    std::make_shared<ScriptedModule>(script));
    }

    static std::string textOf(const Played& run)
    {
        std::string text;
        for (const Json& event : run.events)
            text += event.dump() + "\n";
        return text;
    }

    /// The samples of this instrument in the only recording of the run; -1: not recorded.
    static std::int64_t recordedSamples(const Played& run, const std::string& name)
    {
        for (const Json& event : run.events)
            if (event["event"] == "recorded")
                for (const Json& instrument : event["instruments"])
                    if (instrument["name"] == name)
                        return instrument["samples"].get<std::int64_t>();
        return -1;
    }

private:
    const Folder folder_;
};

TEST_F(ModuleFaultsTest, ACallThatThrowsIsNamedAndCostsNothingElse)
{
    // Without the device a recording would lack its samples: it is refused with the reason.
    const std::set<std::string> refused{"open",
                                        "held",
                                        "restore",
                                        "acquisition",
                                        "arm",
                                        "driver",
                                        "queryTimebase",
                                        "queryTriggerParameters",
                                        "queryTriggerLines",
                                        "queryStaticMeasurement",
                                        "queryDynamicMeasurement"};
    // The page reports what it asks for and cannot do without.
    std::set<std::string> named = refused;
    for (const char* const call : {"start", "GroupCount", "SamplePeriod get", "SampleChoiceList get", "BlockSize get",
                                   "BlockSizeChoiceList get", "Duration get", "Duration set", "StartMode get",
                                   "StartMode set", "StopMode get", "StopMode set", "StartTriggerLine set"})
        named.insert(call);
    std::set<std::string> calls = named;
    for (std::size_t i = 0; i < operationCount; ++i)
        calls.insert(failingName(static_cast<Operation>(i)));
    for (const std::string& call : calls) {
        const auto script = std::make_shared<Script>();
        script->throws = {call};
        const Played run = played(
            "click optOnTrigger\nclick optImmediate\nset-all sample-period 0.001\nset-all block-size 10\nrecord out.h5",
            script);
        EXPECT_EQ(run.fault, "") << call;
        EXPECT_EQ(run.last("state")["readOnly"], false) << call;
        EXPECT_EQ(recordedSamples(run, "Other"), refused.contains(call) ? -1 : 50) << call << run.only({"message"});
        EXPECT_TRUE(!named.contains(call) || textOf(run).find(call + " throws") != std::string::npos) << call;
    }
}

TEST_F(ModuleFaultsTest, BlocksThatBreakTheContractEndInAFailure)
{
    const char* const blocks = "the driver module has delivered a block out of turn or of the wrong size";
    const std::pair<const char*, std::function<void(Script&)>> cases[]{
        {blocks, delivers([](BlockSink& sink, Block block) {
             block.samples.pop_back();
             sink.deliver(std::move(block));
         })},
        {blocks, delivers([](BlockSink& sink, Block block) {
             block.samples.clear();
             block.count = -1;
             sink.deliver(std::move(block));
         })},
        {blocks, delivers([](BlockSink& sink, const Block& block) {
             sink.deliver(block);
             sink.deliver(block);
         })},
        {"the driver module has delivered a trigger out of turn", delivers([](BlockSink& sink, const Block& block) {
             sink.triggered(0);
             sink.deliver(block);
         })},
        {blocks, [](Script& it) { it.triggered = [](BlockSink&, std::int64_t) {}; }},
        {"is on fire", ends([](BlockSink& sink, auto next, const auto&) {
             sink.ended(next, "is on fire");
             sink.ended(next, "again");
             sink.deliver({});
         })},
        {"ended after 20 of 50 samples",
         [](Script& it) {
             it.deliver = [](BlockSink& sink, Block block) {
                 block.count = 20;
                 block.samples.resize(80);
                 sink.deliver(std::move(block));
             };
             it.ended = [](BlockSink& sink, auto, const auto&) { sink.ended(20, ""); };
         }},
    };
    for (const auto& [failure, plant] : cases) {
        const auto script = std::make_shared<Script>();
        plant(*script);
        const Played run = played(script->triggered ? "click optOnTrigger\nrecord out.h5" : "record out.h5", script);
        EXPECT_NE(run.only({"recorded"}).find(std::string("Device: ") + failure), std::string::npos)
            << failure << run.only({"recorded", "message"});
        EXPECT_EQ(recordedSamples(run, "Other"), 50) << failure;
    }
}

TEST_F(ModuleFaultsTest, ADeviceThatIsTakenAwayComesBack)
{
    const auto script = std::make_shared<Script>();
    // It is pulled out after its first samples.
    script->deliver = [&](BlockSink& sink, Block block) {
        sink.deliver(std::move(block));
        script->isGone = true;
    };
    script->ended = [&](BlockSink& sink, auto next, const auto&) {
        sink.ended(next, script->isGone ? "was taken away" : "");
    };
    const std::string away =
        played("record out.h5\nrecord again.h5\nsetup", script).only({"recorded", "message", "report"});
    EXPECT_NE(away.find("Device: was taken away"), std::string::npos) << away;
    EXPECT_NE(away.find("Device: scripted a: device a is not there"), std::string::npos) << away;

    // It is missing when the set-up is opened, and there when it is handed over.
    const auto late = std::make_shared<Script>();
    late->missing = 1;
    const Played once = played("record out.h5", late);
    EXPECT_EQ(recordedSamples(once, "Device"), 50) << textOf(once);
    late->missing = 2;
    const Played missing = played("record out.h5\nsetup\nrecord again.h5", late);
    EXPECT_NE(missing.only({"message"}).find("Device: scripted a: device a is not there"), std::string::npos);
    EXPECT_EQ(recordedSamples(missing, "Device"), 50) << textOf(missing);

    // It is missing at first, and then plugged in.
    script->deliver = nullptr;
    const auto module = std::make_shared<ScriptedModule>(script);
    HostInstruments instruments = makeDrivers(parseSetup(bench, "bench.json"), module);
    EXPECT_THROW(instruments[0]->GroupCount(), Failure);
    EXPECT_EQ(instruments[0]->settings(), parseSetup(bench, "bench.json").instruments[0]);
    script->isGone = false;
    instruments[0]->reopenDevice();
    EXPECT_EQ(instruments[0]->GroupCount(), 2);
    EXPECT_EQ(instruments[0]->settings().timebase->duration, 0.05F);

    // What cannot be monitored is free again.
    script->arm = [](ArmedSettings& armed) { armed.period = 0.0; };
    EXPECT_THROW(Monitor({instruments[0]}), RecordingRefusal);
    script->arm = nullptr;

    // Armed, it is gone; and then back.
    script->isGone = true;
    EXPECT_THROW(instruments[0]->acquisition()->arm(), Failure);
    EXPECT_THROW(instruments[0]->acquisition()->arm(), Failure);
    script->isGone = false;
    Acquisition& device = *instruments[0]->acquisition();
    EXPECT_EQ(device.arm().channels.size(), 4U);
    device.stop();

    for (const std::string call : {"start", "stop"}) {
        script->throws = {call};
        Monitor monitor({instruments[0]});
        monitor.stop();
        EXPECT_TRUE(monitor.waitFor(std::chrono::hours(1)));
        script->throws.clear();
        const int toOpen = script->missing;
        device.arm();
        EXPECT_EQ(script->missing, toOpen - 1) << "it is opened again after a failed " << call;
        device.stop();
    }
}

} // namespace
} // namespace ko
