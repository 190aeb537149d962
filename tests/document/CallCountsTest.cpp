#include "fakes/DocumentTest.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/SelectChannel.h"

#include <sstream>
#include <tuple>

namespace ko::test {
namespace {

/// Number of calls by operation, over all drivers.
using Counts = std::map<std::string, int>;

Counts operator+(Counts sum, const Counts& other)
{
    for (const auto& [operation, count] : other)
        sum[operation] += count;
    return sum;
}

/// Returns `times` for each of these operations.
Counts each(int times, const std::string& operations)
{
    Counts counts;
    std::istringstream words(operations);
    for (std::string word; words >> word;)
        counts[word] += times;
    return counts;
}

/// Numbers of dynamic drivers, of static drivers, and of channels of each.
using Size = std::tuple<int, int, int>;

/// The host calls of each event. The first driver is start master and the first static one scan master. The counts are
/// for `d` dynamic and `s` static drivers, `n` in total, with `c` channels each.
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
    void expectCalls(const char* event, const Counts& expected, const std::function<void()>& run)
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

    /// Drivers are queried until one of each kind is found; the first driver by both tests.
    Counts survey() const { return each(d + 2, "MeasurementMode SamplingMode"); }
    static Counts capture() { return each(1, "queryTimebase StartMode StartTime StopMode Duration"); }
    Counts estimate() const
    {
        const Counts dynamicBytes = each(d, "queryDynamicMeasurement DynamicBytes");
        const Counts staticBytes =
            each(s, "GroupCount ChannelCount queryStaticMeasurement NumberOfScans") + each(s * c, "ChannelAttribute");
        const Counts figures = each(2, "queryTimebase") + each(1, "SamplePeriod BlockSize ScanPeriod");
        return each(n, "MeasurementMode SamplingMode") + dynamicBytes + staticBytes + figures;
    }
    /// A number is read, written and read back, and the estimate made: for the current dynamic driver, or for all
    /// drivers.
    Counts entered(const std::string& number) const
    {
        return estimate() + each(1, "queryTimebase set" + number) + each(2, number);
    }
    Counts pushScanPeriod() const { return each(n, "queryTimebase setScanPeriod") + each(2 * n, "ScanPeriod"); }
    /// A setting of the schedule is read and read back at every driver, except that the value read back from the first
    /// driver is reused.
    Counts reread(const std::string& settings) const { return each(2 * n - 1, settings); }
    /// A change of the schedule writes to each driver only the setting that differs there, and the duration to all.
    Counts change(const std::string& set) const
    {
        return estimate() + capture() + reread("Duration") + each(n, "queryTimebase " + set);
    }
    Counts startModeChange() const { return change("setStartMode") + reread("StartMode"); }
    Counts stopModeChange() const { return change("setStopMode") + reread("StopMode"); }
    static Counts parameterGrid()
    {
        return each(1, "queryTriggerParameters GetTriggerParamCount GetTriggerParamChoices") +
               each(2, "GetTriggerParamId GetTriggerParamName GetTriggerParamType GetTriggerParamValue");
    }
    Counts lines(int drivers) const
    {
        return each(2 * drivers, "queryTriggerLines") +
               each(1, "setStartTriggerLine StartTriggerLine setScanTriggerLine ScanTriggerLine") +
               each(drivers - 1, "setStartTriggerInput setScanTriggerInput");
    }
    /// Choosing a channel reads each but the old and the new one; the old one is switched off, the new one is switched
    /// on and read back.
    Counts sourceSwitch() const
    {
        return each(1, "queryTriggerParameters GroupCount ChannelCount") + each(c - 1, "TriggerEnabled");
    }
    /// Building the page when the masters are known; `ranges` is n if no driver has lists.
    Counts build(int ranges) const
    {
        const Counts currentDrivers = each(1, "MeasurementMode SamplingMode");
        const Counts freeLines = each(3 * n, "queryTriggerLines") + each(1, "StartLinesAsMaster ScanLinesAsMaster") +
                                 each(n - 1, "StartLinesAsListener ScanLinesAsListener");
        const Counts offers = each(n, "SampleChoiceList BlockSizeChoiceList ScanChoiceList") +
                              each(3 * n, "queryTimebase") + each(2 * ranges, "ChoiceRange") +
                              each(ranges, "BlockSizeRange");
        const Counts bothEditors = each(2, "queryTimebase") + each(1, "SamplePeriod BlockSize ScanPeriod");
        const Counts settings = each(n, "queryTimebase setStartMode setStopMode setDuration") +
                                each(n, "StartMode StopMode Duration") + each(1, "StartTime");
        const Counts compared = each(d - 1, "queryTimebase SamplePeriod BlockSize") + each(n, "DriverName");
        return currentDrivers + freeLines + lines(n) + offers + bothEditors + pushScanPeriod() + settings + estimate() +
               compared;
    }
    Counts unwired() const { return each(n, "StartTriggerLine ScanTriggerLine StartMasterRank ScanMasterRank"); }
    /// Finding the start master and the scan master by their wired lines.
    Counts wired() const { return each(1, "StartTriggerLine StartMasterRank") + each(d + 1, "ScanTriggerLine"); }
};

TEST_P(CallCounts, OpeningAsksForEachThingOnce)
{
    addDrivers({});
    expectCalls("hand-over", survey() + capture(), [&] { handOver(); });
    expectCalls("show", build(n) + unwired(), [&] { document->UserDocument_Show(); });
    expectCalls("show again", build(n) + wired(), [&] { document->UserDocument_Show(); });
    const Counts cleared = each(n, "queryTriggerLines setScanTriggerLine setStartTriggerLine");
    addDrivers({0.001, 0.01, 0.1});
    expectCalls("hand-over while shown", survey() + capture() + cleared + build(0) + unwired(), [&] { handOver(); });
}

TEST_P(CallCounts, AKeystrokeReadsWritesReadsBackAndEstimatesOnce)
{
    addDrivers({});
    open();
    const Counts scanPeriod = pushScanPeriod() + estimate();
    const struct {
        TextBox& box;
        const char *key, *read;
        Counts keystroke;
    } boxes[] = {{page().txtSampleRate, "7", "SamplePeriod", entered("SamplePeriod")},
                 {page().txtSamplePeriod, "6", "SamplePeriod", entered("SamplePeriod")},
                 {page().txtBlockSize, "64", "BlockSize", entered("BlockSize")},
                 {page().txtScanRate, "7", "ScanPeriod", scanPeriod},
                 {page().txtScanPeriod, "6", "ScanPeriod", scanPeriod},
                 {page().txtDuration, "5", "Duration", change("setDuration")}};
    for (const auto& it : boxes) {
        ASSERT_TRUE(page().moveFocus(&it.box));
        expectCalls(it.key, it.keystroke, [&] { it.box.userTyped(it.key); });
        const Counts look = each(1, std::string("queryTimebase ") + it.read);
        expectCalls("a key that makes no number", look, [&] { it.box.userTyped("x"); });
        it.box.userUndid();
        expectCalls("leaving", look, [&] { page().moveFocus(&page().optAfter); });
    }
    page().moveFocus(&page().txtDuration);
    bool allowed = false;
    expectCalls("leave check", Counts{}, [&] { document->state().OKToLeave(allowed); });
    expectCalls("accept", each(1, "queryTimebase Duration"), [&] { document->menu().OnCommand(command::acceptEntry); });
}

TEST_P(CallCounts, AChoiceReadsWritesReadsBackAndEstimatesOnce)
{
    addDrivers({0.001, 0.01, 1024, 2048});
    open();
    const Counts scanPeriod = estimate() + pushScanPeriod();
    expectCalls("rate", entered("SamplePeriod"), [&] { page().cmbSampleRate.userChose(1); });
    expectCalls("period", entered("SamplePeriod"), [&] { page().cmbSamplePeriod.userChose(2); });
    expectCalls("block size", entered("BlockSize"), [&] { page().cmbBlockSize.userChose(3); });
    expectCalls("scan rate", scanPeriod, [&] { page().cmbScanRate.userChose(1); });
    expectCalls("scan period", scanPeriod, [&] { page().cmbScanPeriod.userChose(2); });
    expectCalls("unit", change("setDuration"), [&] { page().cmbInterval.userChose(1); });
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
    expectCalls("at time", startModeChange() + reread("StartTime"), [&] { page().optStartTime.userClicked(); });
    expectCalls("stop at time", stopModeChange(), [&] { page().optStopTime.userClicked(); });
    expectCalls("stop time", change("setDuration") + reread("StopMode"), [&] { page().cmdStopTime.userClicked(); });
    expectCalls("start time", change("setStartTime") + reread("StartTime") + each(n, "setDuration"),
                [&] { page().cmdStartTime.userClicked(); });
    expectCalls("after", stopModeChange(), [&] { page().optAfter.userClicked(); });
    expectCalls("immediately", startModeChange(), [&] { page().optImmediate.userClicked(); });
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
    const Counts caption = each(2, "ChannelAttribute");
    const Counts browser = each(1, "DriverName GroupCount GroupName queryTriggerParameters ChannelCount") +
                           each(c, "CanTrigger") + each(2 * c, "ChannelAttribute");
    expectCalls("channel",
                browser + each(n - 1, "DriverName") + sourceSwitch() + caption + parameterGrid() +
                    each(2, "setTriggerEnabled"),
                [&] { page().cmdChannel.userClicked(); });
    expectCalls("cell",
                each(2, "queryTriggerParameters GetTriggerParamValue") + each(4, "GetTriggerParamType") +
                    each(1, "GetTriggerParamMin GetTriggerParamMax SetTriggerParamValue"),
                [&] { page().grdParam.userEditedCell(1, "7"); });
    host.inModalForm = [](Form& form) {
        auto& dialog = dynamic_cast<AdvancedTrig&>(form);
        dialog.optStartTrig[5]->userClicked();
        dialog.optScanTrig[6]->userClicked();
        dialog.btnOK.userClicked();
    };
    const Counts tips = each(n, "queryTriggerLines DriverName StartTriggerLine ScanTriggerLine");
    expectCalls("lines", tips + lines(n), [&] { page().mnuTimebaseTriggerLines.userClicked(); });
    const Counts onTrigger = caption + parameterGrid() +
                             each(1, "queryTriggerParameters setTriggerEnabled TriggerEnabled") +
                             each(1, "ChannelAttribute") +       // is it enabled?
                             each(1, "GroupCount ChannelCount"); // is it still there?
    expectCalls("read-only", build(n) + wired() + onTrigger + capture(), [&] { document->mode().setReadOnly(true); });
    expectCalls("editable", build(n) + wired() + onTrigger, [&] { document->mode().setReadOnly(false); });
    expectCalls("immediately", startModeChange() + each(1, "queryTriggerParameters setTriggerEnabled"),
                [&] { page().optImmediate.userClicked(); });
    expectCalls("on trigger",
                startModeChange() + sourceSwitch() + caption + parameterGrid() +
                    each(1, "setTriggerEnabled TriggerEnabled ChannelAttribute"),
                [&] { page().optOnTrigger.userClicked(); });
}

INSTANTIATE_TEST_SUITE_P(Sizes, CallCounts, testing::Values(Size{2, 1, 2}, Size{3, 4, 5}));

} // namespace
} // namespace ko::test
