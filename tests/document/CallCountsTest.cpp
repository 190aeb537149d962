#include "fakes/DocumentTest.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/SelectChannel.h"

#include <ostream>
#include <tuple>

namespace ko::test {
namespace {

/// How often each operation of all drivers together is called.
using Counts = std::map<std::string, int>;

Counts operator+(Counts sum, const Counts& other)
{
    for (const auto& [operation, count] : other)
        sum[operation] += count;
    return sum;
}

/// Dynamic drivers, then static ones, and the channels of each.
using Size = std::tuple<int, int, int>;

/// What each event costs in host calls. The first driver is start master and the first static one scan master; the
/// counts are for `d` dynamic and `s` static drivers, `n` together, with `c` channels each.
class CallCounts : public DocumentTest, public testing::WithParamInterface<Size> {
protected:
    const int d = std::get<0>(GetParam()), s = std::get<1>(GetParam()), c = std::get<2>(GetParam()), n = d + s;

    void addDrivers(const std::vector<double>& choices)
    {
        fakes.clear();
        for (int i = 0; i < n; ++i) {
            FakeDriver& driver = addDriver(i < d ? 1 : 2);
            (i < d ? driver.startRank : driver.scanRank) = 5;
            driver.groups = {{"Inputs", std::vector<FakeDriver::Channel>(static_cast<std::size_t>(c))}};
            driver.parameters = {{}, {.id = 4, .type = "Enum"}};
            driver.sampleChoices = driver.blockChoices = driver.scanChoices = choices;
            driver.sampleRange = driver.scanRange = {1e-6, 100};
            driver.blockRange = {16, 4096};
            driver.numberOfScans = 100;
        }
    }
    void expectCalls(const char* event, const std::function<void()>& run, const Counts& expected)
    {
        for (const auto& driver : fakes)
            driver->calls.clear();
        run();
        Counts made;
        for (const auto& driver : fakes)
            made = made + driver->calls;
        for (const auto& [operation, count] : made + expected) {
            const auto wanted = expected.find(operation);
            EXPECT_EQ(made[operation], wanted == expected.end() ? 0 : wanted->second) << event << ": " << operation;
        }
    }

    /// Until there is one of each kind; the first driver is asked for both tests.
    Counts survey() const { return {{"MeasurementMode", d + 2}, {"SamplingMode", d + 2}}; }
    static Counts capture()
    {
        return {{"queryTimebase", 1}, {"StartMode", 1}, {"StartTime", 1}, {"StopMode", 1}, {"Duration", 1}};
    }
    Counts estimate() const
    {
        return {{"MeasurementMode", n},
                {"SamplingMode", n},
                {"queryDynamicMeasurement", d},
                {"DynamicBytes", d},
                {"GroupCount", s},
                {"ChannelCount", s},
                {"queryStaticMeasurement", s},
                {"NumberOfScans", s},
                {"ChannelAttribute", s * c},
                {"queryTimebase", 2},
                {"SamplePeriod", 1},
                {"BlockSize", 1},
                {"ScanPeriod", 1}};
    }
    /// Reading, writing and reading back for all drivers.
    Counts pushScanPeriod() const { return {{"queryTimebase", n}, {"ScanPeriod", 2 * n}, {"setScanPeriod", n}}; }
    /// A setting of the schedule is read and read back at every driver. What was read back from the first is captured,
    /// and is not asked for again.
    Counts reread(const char* get) const { return {{get, 2 * n - 1}}; }
    /// A change of the schedule writes to each driver the one setting that differs there; the duration goes with all.
    Counts change(const char* set) const
    {
        return estimate() + capture() + reread("Duration") + Counts{{"queryTimebase", n}, {set, n}};
    }
    Counts startModeChange() const { return change("setStartMode") + reread("StartMode"); }
    Counts stopModeChange() const { return change("setStopMode") + reread("StopMode"); }
    static Counts parameterGrid()
    {
        return {{"queryTriggerParameters", 1}, {"GetTriggerParamCount", 1}, {"GetTriggerParamId", 2},
                {"GetTriggerParamName", 2},    {"GetTriggerParamType", 2},  {"GetTriggerParamValue", 2},
                {"GetTriggerParamChoices", 1}};
    }
    Counts lines(int drivers) const
    {
        return {{"queryTriggerLines", 2 * drivers},
                {"setStartTriggerLine", 1},
                {"StartTriggerLine", 1},
                {"setStartTriggerInput", drivers - 1},
                {"setScanTriggerInput", drivers - 1},
                {"setScanTriggerLine", 1},
                {"ScanTriggerLine", 1}};
    }
    /// Choosing a channel asks each but the old and the new one; the old one is switched off, the new one is switched
    /// on and read back.
    Counts sourceSwitch() const
    {
        return {{"queryTriggerParameters", 1}, {"GroupCount", 1}, {"ChannelCount", 1}, {"TriggerEnabled", c - 1}};
    }
    /// A page that is built, once the masters are known; `ranges` is n where no driver has lists.
    Counts build(int ranges) const
    {
        return estimate() + pushScanPeriod() + lines(n) +
               Counts{{"queryTriggerLines", 3 * n},
                      {"StartLinesAsMaster", 1},
                      {"ScanLinesAsMaster", 1},
                      {"StartLinesAsListener", n - 1},
                      {"ScanLinesAsListener", n - 1},
                      {"queryTimebase", 2 + 3 * n + n}, // both editors, three offers, the settings
                      {"SamplePeriod", 1},
                      {"BlockSize", 1},
                      {"ScanPeriod", 1},
                      {"SampleChoiceList", n},
                      {"BlockSizeChoiceList", n},
                      {"ScanChoiceList", n},
                      {"ChoiceRange", 2 * ranges},
                      {"BlockSizeRange", ranges},
                      {"MeasurementMode", 1},
                      {"SamplingMode", 1},
                      {"setStartMode", n},
                      {"setStopMode", n},
                      {"setDuration", n},
                      {"StartMode", n},
                      {"StartTime", 1},
                      {"StopMode", n},
                      {"Duration", n}};
    }
    Counts unwired() const
    {
        return {{"StartTriggerLine", n}, {"ScanTriggerLine", n}, {"StartMasterRank", n}, {"ScanMasterRank", n}};
    }
    /// Start master and scan master are found where they were wired.
    Counts wired() const { return {{"StartTriggerLine", 1}, {"StartMasterRank", 1}, {"ScanTriggerLine", d + 1}}; }
};

TEST_P(CallCounts, OpeningAsksForEachThingOnce)
{
    addDrivers({});
    expectCalls(
        "hand-over", [&] { handOver(); }, survey() + capture());
    expectCalls(
        "show", [&] { document->UserDocument_Show(); }, build(n) + unwired());
    expectCalls(
        "show again", [&] { document->UserDocument_Show(); }, build(n) + wired());
    const Counts cleared{{"queryTriggerLines", n}, {"setScanTriggerLine", n}, {"setStartTriggerLine", n}};
    addDrivers({0.001, 0.01, 0.1});
    expectCalls(
        "hand-over while shown", [&] { handOver(); }, survey() + capture() + cleared + build(0) + unwired());
}

TEST_P(CallCounts, AKeystrokeReadsWritesReadsBackAndEstimatesOnce)
{
    addDrivers({});
    open();
    const auto samples = [this](const char* get, const char* set) {
        return estimate() + Counts{{"queryTimebase", 1}, {get, 2}, {set, 1}};
    };
    const Counts samplePeriod = samples("SamplePeriod", "setSamplePeriod");
    const Counts scanPeriod = pushScanPeriod() + estimate();
    const Counts duration = change("setDuration");
    const struct {
        TextBox& box;
        const char* key;
        const char* read;
        Counts keystroke;
    } boxes[] = {{page().txtSampleRate, "7", "SamplePeriod", samplePeriod},
                 {page().txtSamplePeriod, "6", "SamplePeriod", samplePeriod},
                 {page().txtBlockSize, "64", "BlockSize", samples("BlockSize", "setBlockSize")},
                 {page().txtScanRate, "7", "ScanPeriod", scanPeriod},
                 {page().txtScanPeriod, "6", "ScanPeriod", scanPeriod},
                 {page().txtDuration, "5", "Duration", duration}};
    for (const auto& it : boxes) {
        ASSERT_TRUE(page().moveFocus(&it.box));
        expectCalls(
            it.key, [&] { it.box.userTyped(it.key); }, it.keystroke);
        const Counts look{{"queryTimebase", 1}, {it.read, 1}};
        expectCalls(
            "a key that makes no number", [&] { it.box.userTyped("x"); }, look);
        it.box.userUndid();
        expectCalls(
            "leaving", [&] { page().moveFocus(&page().optAfter); }, look);
    }
    page().moveFocus(&page().txtDuration);
    bool allowed = false;
    expectCalls("leave check", [&] { document->state().OKToLeave(allowed); }, {});
    expectCalls("accept", [&] { document->menu().OnCommand(command::acceptEntry); },
                {{"queryTimebase", 1}, {"Duration", 1}});
}

TEST_P(CallCounts, AChoiceReadsWritesReadsBackAndEstimatesOnce)
{
    addDrivers({0.001, 0.01, 1024, 2048});
    open();
    const Counts samplePeriod = estimate() + Counts{{"queryTimebase", 1}, {"SamplePeriod", 2}, {"setSamplePeriod", 1}};
    const Counts blockSize = estimate() + Counts{{"queryTimebase", 1}, {"BlockSize", 2}, {"setBlockSize", 1}};
    const Counts scanPeriod = estimate() + pushScanPeriod();
    expectCalls(
        "rate", [&] { page().cmbSampleRate.userChose(1); }, samplePeriod);
    expectCalls(
        "period", [&] { page().cmbSamplePeriod.userChose(2); }, samplePeriod);
    expectCalls(
        "block size", [&] { page().cmbBlockSize.userChose(3); }, blockSize);
    expectCalls(
        "scan rate", [&] { page().cmbScanRate.userChose(1); }, scanPeriod);
    expectCalls(
        "scan period", [&] { page().cmbScanPeriod.userChose(2); }, scanPeriod);
    expectCalls(
        "unit", [&] { page().cmbInterval.userChose(1); }, change("setDuration"));
}

TEST_P(CallCounts, AChangeOfTheScheduleWritesWhatDiffersAndEstimatesOnce)
{
    addDrivers({});
    open();
    host.inModalForm = [](Form& form) {
        auto& dialog = dynamic_cast<SetDateTime&>(form);
        dialog.optSpecifiedDay.userClicked();
        dialog.calDate.userChose(2026, 11, 22);
        dialog.btnOK.userClicked();
    };
    expectCalls(
        "at time", [&] { page().optStartTime.userClicked(); }, startModeChange() + reread("StartTime"));
    expectCalls(
        "stop at time", [&] { page().optStopTime.userClicked(); }, stopModeChange());
    expectCalls(
        "stop time", [&] { page().cmdStopTime.userClicked(); }, change("setDuration") + reread("StopMode"));
    expectCalls(
        "start time", [&] { page().cmdStartTime.userClicked(); },
        change("setStartTime") + reread("StartTime") + Counts{{"setDuration", n}});
    expectCalls(
        "after", [&] { page().optAfter.userClicked(); }, stopModeChange());
    expectCalls(
        "immediately", [&] { page().optImmediate.userClicked(); }, startModeChange());
}

TEST_P(CallCounts, TheTriggerIsSwitchedOnceAndReadOnlyModeBuildsThePageOnce)
{
    addDrivers({});
    fakes[0]->groups[0].channels[1].triggerSource = true;
    fakes[0]->startMode = startMode::onTrigger;
    open();
    EXPECT_EQ(fakes[0]->calls["setTriggerEnabled"], 1) << "while the page is built";
    EXPECT_EQ(fakes[0]->calls["TriggerEnabled"], c + 1) << "each to find the marked one, and that read back";
    host.inModalForm = [](Form& form) {
        auto& dialog = dynamic_cast<SelectChannel&>(form);
        dialog.chsNavigate.userPicked({*dialog.chsNavigate.lineOf(nullptr, 0, 0)});
        dialog.cmdOK.userClicked();
    };
    const Counts caption{{"ChannelAttribute", 2}};
    const Counts browser{
        {"DriverName", 1}, {"GroupCount", 1},   {"GroupName", 1},           {"queryTriggerParameters", 1},
        {"CanTrigger", c}, {"ChannelCount", 1}, {"ChannelAttribute", 2 * c}};
    expectCalls(
        "channel", [&] { page().cmdChannel.userClicked(); },
        browser + sourceSwitch() + caption + parameterGrid() + Counts{{"setTriggerEnabled", 2}});
    expectCalls("cell", [&] { page().grdParam.userEditedCell(1, "7"); },
                {{"queryTriggerParameters", 2},
                 {"GetTriggerParamType", 4},
                 {"GetTriggerParamMin", 1},
                 {"GetTriggerParamMax", 1},
                 {"SetTriggerParamValue", 1},
                 {"GetTriggerParamValue", 2}});
    host.inModalForm = [](Form& form) {
        auto& dialog = dynamic_cast<AdvancedTrig&>(form);
        dialog.optStartTrig[5]->userClicked();
        dialog.optScanTrig[6]->userClicked();
        dialog.btnOK.userClicked();
    };
    const Counts tips{{"queryTriggerLines", n}, {"DriverName", n}, {"StartTriggerLine", n}, {"ScanTriggerLine", n}};
    expectCalls(
        "lines", [&] { page().mnuTimebaseTriggerLines.userClicked(); }, tips + lines(n));
    const Counts onTrigger = caption + parameterGrid() +
                             Counts{{"queryTriggerParameters", 1},
                                    {"setTriggerEnabled", 1},
                                    {"TriggerEnabled", 1},
                                    {"ChannelAttribute", 1}, // is it enabled?
                                    {"GroupCount", 1},
                                    {"ChannelCount", 1}}; // is it still there?
    expectCalls(
        "read-only", [&] { document->mode().setReadOnly(true); }, build(n) + wired() + onTrigger + capture());
    expectCalls(
        "editable", [&] { document->mode().setReadOnly(false); }, build(n) + wired() + onTrigger);
    expectCalls(
        "immediately", [&] { page().optImmediate.userClicked(); },
        startModeChange() + Counts{{"queryTriggerParameters", 1}, {"setTriggerEnabled", 1}});
    expectCalls(
        "on trigger", [&] { page().optOnTrigger.userClicked(); },
        startModeChange() + sourceSwitch() + caption + parameterGrid() +
            Counts{{"setTriggerEnabled", 1}, {"TriggerEnabled", 1}, {"ChannelAttribute", 1}});
}

INSTANTIATE_TEST_SUITE_P(Sizes, CallCounts, testing::Values(Size{2, 1, 2}, Size{3, 4, 5}));

} // namespace
} // namespace ko::test
