#include "host/modules/CheckedModule.h"

#include <limits>

namespace ko {
namespace {

using namespace test;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Each member of the settings that a driver answers, and of which the instrument holds another value.
TEST(AnswerCheckTest, FindsEachAnswerThatIsNotWhatIsHeld)
{
    static const auto channel = [](InstrumentSettings& held) -> ChannelSettings& { return held.groups[0].channels[0]; };
    const std::pair<const char*, void (*)(InstrumentSettings & held)> cases[]{
        {"DriverName(0)", [](auto& held) { held.name = "other"; }},
        {"MeasurementMode", [](auto& held) { held.measurementMode = 2; }},
        {"SamplingMode", [](auto& held) { held.samplingMode = 2; }},
        {"GroupCount", [](auto& held) { held.groups.resize(1); }},
        {"GroupName(0)", [](auto& held) { held.groups[0].name = "other"; }},
        {"ChannelCount(0)", [](auto& held) { held.groups[0].channels.resize(1); }},
        {"ChannelAttribute(0, 0, 1)", [](auto& held) { channel(held).address = "7:7"; }},
        {"ChannelAttribute(0, 0, 2)", [](auto& held) { channel(held).enabled = 0; }},
        {"ChannelAttribute(0, 0, 3)", [](auto& held) { channel(held).name = "other"; }},
        {"held: has the channel address \"1:2\" twice", [](auto& held) { channel(held).address = "1:2"; }},
        {"held: has the trigger parameter 2 twice", [](auto& held) { channel(held).triggerParameters[1].id = 2; }},
        {"held, kept in a set-up file", [](auto& held) { held.timebase->scanPeriod.value = notANumber; }},
        {"queryTimebase: returns a view", [](auto& held) { held.timebase.reset(); }},
        {"queryTriggerLines: returns a view", [](auto& held) { held.triggerLines.reset(); }},
        {"queryTriggerParameters: returns a view", [](auto& held) { held.hasTriggerParameters = false; }},
        {"SamplePeriod", [](auto& held) { held.timebase->samplePeriod.value = 9; }},
        {"SampleChoiceList", [](auto& held) { held.timebase->samplePeriod.choices = {}; }},
        {"ChoiceRange after SampleChoiceList", [](auto& held) { held.timebase->samplePeriod.range.minimum = 1; }},
        {"BlockSize", [](auto& held) { held.timebase->blockSize.value = 9; }},
        {"BlockSizeChoiceList", [](auto& held) { held.timebase->blockSize.choices = {9}; }},
        {"BlockSizeRange", [](auto& held) { held.timebase->blockSize.range.minimum = 2; }},
        {"ScanPeriod", [](auto& held) { held.timebase->scanPeriod.value = 9; }},
        {"ScanChoiceList", [](auto& held) { held.timebase->scanPeriod.choices = {9}; }},
        {"ChoiceRange after ScanChoiceList", [](auto& held) { held.timebase->scanPeriod.range.minimum = 1; }},
        {"Duration", [](auto& held) { held.timebase->duration = 9; }},
        {"StartTime", [](auto& held) { held.timebase->startTime = {9}; }},
        {"StartMode", [](auto& held) { held.timebase->startMode = 9; }},
        {"StopMode", [](auto& held) { held.timebase->stopMode = 9; }},
        {"CanTrigger(0, 0)", [](auto& held) { channel(held).canTrigger = false; }},
        {"TriggerEnabled(0, 0)", [](auto& held) { channel(held).triggerSource = true; }},
        {"GetTriggerParamCount(0, 0)", [](auto& held) { channel(held).triggerParameters.resize(1); }},
        {"GetTriggerParamId(0, 0, 1)", [](auto& held) { channel(held).triggerParameters[1].id = 9; }},
        {"GetTriggerParamName(0, 0, 2)", [](auto& held) { channel(held).triggerParameters[0].name = "other"; }},
        {"GetTriggerParamType(0, 0, 4)", [](auto& held) { channel(held).triggerParameters[2].type = "String"; }},
        {"SetTriggerParamValue(0, 0, 2): keeps",
         [](auto& held) { channel(held).triggerParameters[0].type = "String"; }},
        {"GetTriggerParamValue(0, 0, 2)", [](auto& held) { channel(held).triggerParameters[0].value = 9.0; }},
        {"GetTriggerParamChoices(0, 0, 3)", [](auto& held) { channel(held).triggerParameters[1].choices = {"x"}; }},
        {"GetTriggerParamMin(0, 0, 2)", [](auto& held) { channel(held).triggerParameters[0].minimum = 9; }},
        {"GetTriggerParamMax(0, 0, 2)", [](auto& held) { channel(held).triggerParameters[0].maximum = 9; }},
        {"StartMasterRank", [](auto& held) { held.triggerLines->startMasterRank = 9; }},
        {"ScanMasterRank", [](auto& held) { held.triggerLines->scanMasterRank = 9; }},
        {"StartTriggerLine", [](auto& held) { held.triggerLines->startTriggerLine = 5; }},
        {"ScanTriggerLine", [](auto& held) { held.triggerLines->scanTriggerLine = 5; }},
        {"StartLinesAsMaster", [](auto& held) { held.triggerLines->startLinesAsMaster = {5}; }},
        {"StartLinesAsListener", [](auto& held) { held.triggerLines->startLinesAsListener = {5}; }},
        {"ScanLinesAsMaster", [](auto& held) { held.triggerLines->scanLinesAsMaster = {5}; }},
        {"ScanLinesAsListener", [](auto& held) { held.triggerLines->scanLinesAsListener = {5}; }},
        {"restore(held()): leaves another /dynamicBytes",
         [](auto& held) { held.dynamicBytes = held.dynamicBytes.value_or(0) + held.timebase->duration; }},
    };
    std::string all;
    for (const auto& [call, change] : cases) {
        const auto script = std::make_shared<Script>();
        script->found = {{"a", "Device a"}};
        script->throws = {"start"}; // The short runs are not needed.
        script->held = change;
        const std::string findings = findingsOf(checked(script));
        EXPECT_NE(findings.find(std::string("a: ") + call), std::string::npos) << call << "\nnot in\n" << findings;
        all += findings;
    }
    EXPECT_EQ(sumOf(all), 3303384997U) << "other findings";
}

} // namespace
} // namespace ko
