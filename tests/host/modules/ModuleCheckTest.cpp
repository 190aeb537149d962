#include "host/modules/CheckedModule.h"

#include <future>

namespace ko {
namespace {

using namespace test;

TEST(ModuleCheckTest, AGoodModuleHasNoFinding)
{
    const auto script = std::make_shared<Script>();
    script->deliver = [](BlockSink& sink, Block block) {
        sink.deliver({.first = block.first++, .count = 1, .samples = std::vector<float>(4)});
        block.samples.resize(block.samples.size() - 4);
        if (--block.count > 0)
            sink.deliver(std::move(block));
    };
    ScriptedModule module(script);
    std::string all;
    ModuleCheckOptions options;
    options.run = std::chrono::milliseconds(20);
    options.beforeCall = [&](const std::string& call) { all += call; };
    const ModuleReport report = checkModule(module, options);
    EXPECT_EQ(findingsOf(report), "");
    EXPECT_EQ(std::pair(report.calls, sumOf(all)), std::pair(std::int64_t{15593}, 1093859949U))
        << "another call is made, or one less";

    const auto none = std::make_shared<Script>();
    none->found.clear();
    EXPECT_EQ(checked(none).notes.size(), 1U);
}

auto finds(const std::vector<FoundDevice>& found)
{
    return [=](Script& it) { it.found = found; };
}

// A part of what is found, and what plants the fault.
const std::pair<const char*, std::function<void(Script&)>> faults[]{
    {"module: name: returns \"two words\", which is no word", [](Script& it) { it.name = [] { return "two words"; }; }},
    {"module: name: returns \"x\", and then \"xx\"",
     [](Script& it) { it.name = [text = std::string()]() mutable { return text += "x"; }; }},
    {"module: devices: finds \"a\" twice", finds({{"a", "One"}, {"a", "Other"}})},
    {"module: devices: finds a device without a description or a title", finds({{"a", ""}})},
    {"module: open(\"no device is called this\"): fails without a text",
     [](Script& it) { it.throws = {"open"}, it.isSilent = true; }},
    {"a: open(\"a\", no option is called this=1): must fail, and does not",
     [](Script& it) { it.neverFails = {"open"}; }},
    {"c: open(\"c\"): fails: device c is not there", finds({{"c", "Other"}})},
    {"a: held: has other options than those that the device was opened with",
     [](Script& it) {
         it.held = [](InstrumentSettings& held) { held.options["gain"] = held.options["gain"] == "1" ? "2" : "1"; };
     }},
    {"a: ChannelCount(-1): must fail, and does not", [](Script& it) { it.neverFails = {"ChannelCount"}; }},
    {"a: ChannelAttribute(2147483647, 0, 1): must fail", [](Script& it) { it.neverFails = {"ChannelAttribute"}; }},
    {"a: GroupName(2): must fail", [](Script& it) { it.neverFails = {"GroupName"}; }},
    {"a: setSamplePeriod: does not keep its own value 0.001",
     [](Script& it) { it.keeps = [](double x) { return x + 1; }; }},
    {"a: SamplePeriod: answers NAN (after setSamplePeriod(NAN))",
     [](Script& it) { it.keeps = [](double x) { return x; }; }},
    {"a: setSamplePeriod: keeps 0.007 for 0.002, which it offers",
     [](Script& it) { it.keeps = [](double x) {
                          return x == 0.002 ? 0.007 : x == x ? x : 1.0;
                      }; }},
    {"a: setSamplePeriod: keeps 0.007 for 0.01, which it offers",
     [](Script& it) {
         it.held = [](InstrumentSettings& held) {
             held.timebase->samplePeriod.choices.clear();
             held.timebase->samplePeriod.range = {0.001, 0.01};
         };
         it.keeps = [](double x) { return x == 0.01 ? 0.007 : x == x ? x : 1.0; };
     }},
    {"a: arm: returns other settings than settingsToArm",
     [](Script& it) { it.arm = [](auto& armed) { armed.duration = 3; }; }},
    {"a: arm: returns a period of 0.25 s, and held() has 0.001",
     [](Script& it) { it.arm = [](auto& armed) { armed.period = 0.25; }; }},
    {"a: arm: returns another kind or block size",
     [](Script& it) { it.arm = [](auto& armed) { armed.blockSize = 3; }; }},
    {"a: arm: returns other channels", [](Script& it) { it.arm = [](auto& armed) { armed.channels.pop_back(); }; }},
    {"a: arm: returns a period or a block size by which nothing",
     [](Script& it) { it.arm = [](auto& armed) { armed.period = 0; }; }},
    {"a: queryTimebase: returns another object the second time", [](Script& it) { it.isRestless = true; }},
    {"a: restore, of other views: must fail", [](Script& it) { it.neverFails = {"restore"}; }},
    {"a: acquisition: returns null, and there is a timebase", [](Script& it) { it.throws = {"acquisition"}; }},
    {"a: deliver: is called by start",
     [](Script& it) {
         it.start = [](BlockSink& sink) { sink.deliver({.first = 0, .count = 1, .samples = std::vector<float>(4)}); };
     }},
    {"a: triggered: names sample -1",
     [](Script& it) { it.triggered = [](BlockSink& sink, auto) { sink.triggered(-1); }; }},
    {"a: deliver: comes before the trigger", [](Script& it) { it.triggered = [](BlockSink&, auto) {}; }},
    {"a: start, on trigger: ends without a trigger and without a reason",
     [](Script& it) { it.triggered = [](BlockSink&, auto) {}, it.deliver = [](BlockSink&, const Block&) {}; }},
    {"a: start, not armed: must fail", [](Script& it) { it.neverFails = {"start"}; }},
    {"a: arm, while it acquires: must fail", [](Script& it) { it.neverFails = {"arm"}; }},
    {"a: deliver: has 1 numbers in a block that needs", delivers([](BlockSink& sink, Block block) {
         block.samples.resize(1);
         sink.deliver(std::move(block));
     })},
    {"a: deliver: has a block of 0 samples", delivers([](BlockSink& sink, const Block& block) {
         sink.deliver({.first = block.first, .count = 0, .samples = {}});
     })},
    {"a: deliver: has sample 0, and 20 comes next", delivers([](BlockSink& sink, const Block& block) {
         sink.deliver(block);
         sink.deliver(block);
     })},
    {"a: deliver: has samples before they can have been taken", delivers([](BlockSink& sink, Block block) {
         block.first += 100000;
         sink.deliver(std::move(block));
     })},
    {"a: triggered: is called, and the order does not wait", delivers([](BlockSink& sink, Block block) {
         sink.triggered(block.first);
         sink.deliver(std::move(block));
     })},
    {"a: triggered: is called twice, or after the first block", delivers([](BlockSink& sink, Block block) {
         sink.deliver(std::move(block));
         sink.triggered(0);
     })},
    {"a: deliver: is called after the end", ends([](BlockSink& sink, std::int64_t next, const std::string& reason) {
         sink.ended(next, reason);
         sink.deliver({.first = next, .count = 1, .samples = {}});
     })},
    {"a: ended: is called after the end", ends([](BlockSink& sink, std::int64_t next, const std::string& reason) {
         sink.ended(next, reason);
         sink.ended(next, reason);
     })},
    {"a: ended: names sample 0 after 20 were delivered",
     ends([](BlockSink& sink, auto, const auto& reason) { sink.ended(0, reason); })},
    {"a: ended: comes after 21 of 20 samples",
     ends([](BlockSink& sink, auto next, const auto& reason) { sink.ended(next + 1, reason); })},
    {"a: ended: fails: is hot", ends([](BlockSink& sink, auto next, const auto&) { sink.ended(next, "is hot"); })},
    {"a: stop: ends with the reason is hot",
     ends([](BlockSink& sink, auto next, const auto&) { sink.ended(next, "is hot"); })},
    {"a: start: ended has not come", ends([](BlockSink&, auto, const auto&) {})},
    {"a: stop: returns before ended has come", ends([](BlockSink&, auto, const auto&) {})},
    {"a: closing the instrument while it acquires: is done before ended", ends([](BlockSink&, auto, const auto&) {})},
    {"note: a: 5 of 20 samples were lost", delivers([](BlockSink& sink, Block block) {
         block.first += 5;
         block.count -= 5;
         block.samples.resize(block.samples.size() / 20 * 15);
         sink.deliver(std::move(block));
     })},
    {"note: a: a block takes 10.0 s, so that none", [](Script& it) { it.arm = [](auto& armed) { armed.period = 1; }; }},
};

TEST(ModuleCheckTest, FindsEachFaultThatIsPlanted)
{
    std::vector<std::future<std::string>> checks;
    for (const auto& fault : faults)
        checks.push_back(std::async(std::launch::async, [&fault] {
            const auto script = std::make_shared<Script>();
            script->found = {{"a", "Device a"}};
            fault.second(*script);
            return findingsOf(checked(script, std::chrono::milliseconds(100)));
        }));
    for (std::size_t i = 0; i < checks.size(); ++i) {
        const std::string findings = checks[i].get();
        EXPECT_NE(findings.find(faults[i].first), std::string::npos) << faults[i].first << "\nnot in\n" << findings;
    }
}

TEST(ModuleCheckTest, MakesEveryCallAndWantsATextWhereItFails)
{
    std::vector<std::pair<std::string, std::string>> calls; // as the script and as findings name them
    for (const char* const call : {"name", "about", "devices", "open", "driver", "held", "restore", "acquisition",
                                   "settingsToArm", "arm", "start", "stop", "queryTimebase", "queryTriggerParameters",
                                   "queryTriggerLines", "queryStaticMeasurement", "queryDynamicMeasurement"})
        calls.emplace_back(call, call);
    for (std::size_t i = 0; i < operationCount; ++i)
        if (const auto it = static_cast<Operation>(i); it != Operation::NumberOfScans) // only of scanning instruments
            calls.emplace_back(failingName(it), operationName(it));
    std::string all;
    for (const auto& [call, named] : calls) {
        const auto script = std::make_shared<Script>();
        script->found = {{"a", "Device a"}};
        script->throws = {call, "start"};
        script->isSilent = true;
        const std::string findings = findingsOf(checked(script));
        const std::size_t at = findings.find(named);
        EXPECT_NE(findings.find("fails without a text", at), std::string::npos) << call << "\n" << findings;
        all += call + " fails:\n" + findings;
    }
    EXPECT_EQ(sumOf(all), 2135539402U) << "other findings\n" << all;
}

} // namespace
} // namespace ko
